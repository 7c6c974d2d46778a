// Writes the standard reverb library's table from an efx-presets.h: one row per EFX_REVERB_PRESET_*
// macro, in the header's order, with the group of the comment above it and a readable name made from
// the macro's name ("CASTLE_SMALLROOM" in "Castle Presets" is "Small Room"). The values are not
// parsed here: each row names its macro, so the compiler takes them from the header itself.
//
//   make_reverb_library path/to/AL/efx-presets.h output.cpp

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

namespace {

// The words that the macro names run together, and how each is written. The longest word that fits
// wins, so "HALLWAY" beats "HALL" and "BATHROOM" beats "BATH".
struct Word {
    const char* upper;
    const char* shown;
};
constexpr Word kWords[] = {
    {"ABANDONED", "Abandoned"}, {"ALCOVE", "Alcove"}, {"ALLEY", "Alley"}, {"ARENA", "Arena"},
    {"AUDITORIUM", "Auditorium"}, {"BACKYARD", "Backyard"}, {"BATHROOM", "Bathroom"}, {"CANYON", "Canyon"},
    {"CARAVAN", "Caravan"}, {"CARPETED", "Carpeted"}, {"CAVE", "Cave"}, {"CELL", "Cell"}, {"CHAPEL", "Chapel"},
    {"CITY", "City"}, {"COMMENTATOR", "Commentator"}, {"CONCERT", "Concert"}, {"CORRIDOR", "Corridor"},
    {"COURT", "Court"}, {"COURTYARD", "Courtyard"}, {"CREEK", "Creek"}, {"CUPBOARD", "Cupboard"}, {"DEEP", "Deep"},
    {"DIZZY", "Dizzy"}, {"DRUGGED", "Drugged"}, {"DUSTY", "Dusty"}, {"EMPTY", "Empty"}, {"FOREST", "Forest"},
    {"FULL", "Full"}, {"GARAGE", "Garage"}, {"GENERIC", "Generic"}, {"GRANDSTAND", "Grandstand"},
    {"GYMNASIUM", "Gymnasium"}, {"HALL", "Hall"}, {"HALLWAY", "Hallway"}, {"HANGAR", "Hangar"}, {"HEAVEN", "Heaven"},
    {"HELL", "Hell"}, {"INCAR", "In-Car"}, {"LARGE", "Large"}, {"LIBRARY", "Library"}, {"LIVING", "Living"},
    {"LONG", "Long"}, {"LOT", "Lot"}, {"LUXURY", "Luxury"}, {"MEDIUM", "Medium"}, {"MEMORY", "Memory"},
    {"MOUNTAINS", "Mountains"}, {"MUSEUM", "Museum"}, {"OUTHOUSE", "Outhouse"}, {"PADDED", "Padded"},
    {"PARKING", "Parking"}, {"PASSAGE", "Passage"}, {"PIPE", "Pipe"}, {"PIT", "Pit"}, {"PLAIN", "Plain"},
    {"PLAINS", "Plains"}, {"POOL", "Pool"}, {"PRACTISE", "Practise"}, {"PSYCHOTIC", "Psychotic"},
    {"QUARRY", "Quarry"}, {"RACER", "Racer"}, {"RESONANT", "Resonant"}, {"ROLLING", "Rolling"}, {"ROOM", "Room"},
    {"SAINTPAULS", "Saint Paul's"}, {"SCHOOLROOM", "Schoolroom"}, {"SEWER", "Sewer"}, {"SHORT", "Short"},
    {"SMALL", "Small"}, {"SPORTS", "Sports"}, {"SQUASH", "Squash"}, {"STADIUM", "Stadium"}, {"STONE", "Stone"},
    {"STREETS", "Streets"}, {"SUBWAY", "Subway"}, {"SWIMMING", "Swimming"}, {"TANNOY", "Tannoy"}, {"THIN", "Thin"},
    {"TOMB", "Tomb"}, {"TUNNEL", "Tunnel"}, {"UNDERPASS", "Underpass"}, {"UNDERWATER", "Underwater"},
    {"VALLEY", "Valley"}, {"WATER", "Water"}, {"WORKSHOP", "Workshop"},
};

// "SMALLSWIMMINGPOOL" as "Small Swimming Pool". A stretch that no word fits is shown as one word.
std::string SplitWords(const std::string& run)
{
    std::string shown;
    for (std::size_t at = 0; at < run.size();) {
        const Word* best = nullptr;
        for (const Word& word : kWords) {
            const std::string upper = word.upper;
            if (run.compare(at, upper.size(), upper) == 0 && (!best || upper.size() > std::string(best->upper).size()))
                best = &word;
        }
        if (!shown.empty())
            shown += ' ';
        if (!best) {
            shown += static_cast<char>(run[at]);
            for (std::size_t i = at + 1; i < run.size(); ++i)
                shown += static_cast<char>(std::tolower(static_cast<unsigned char>(run[i])));
            break;
        }
        shown += best->shown;
        at += std::string(best->upper).size();
    }
    return shown;
}

// The readable name of a macro's tail within its group: the part before the first underscore goes
// when the group's name starts with it ("WOODEN_" in "Wooden Galleon").
std::string ReadableName(const std::string& tail, const std::string& group)
{
    std::string groupUpper;
    for (char c : group)
        if (std::isalpha(static_cast<unsigned char>(c)))
            groupUpper += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    std::vector<std::string> parts;
    std::stringstream stream(tail);
    for (std::string part; std::getline(stream, part, '_');)
        parts.push_back(part);
    if (parts.size() > 1 && groupUpper.rfind(parts.front(), 0) == 0)
        parts.erase(parts.begin());
    std::string name;
    for (const std::string& part : parts)
        name += (name.empty() ? "" : " ") + SplitWords(part);
    return name;
}

std::string Quoted(const std::string& text)
{
    std::string quoted = "\"";
    for (char c : text)
        quoted += (c == '"' || c == '\\') ? std::string("\\") + c : std::string(1, c);
    return quoted + "\"";
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: make_reverb_library efx-presets.h output.cpp\n");
        return 2;
    }
    std::ifstream header(argv[1]);
    if (!header) {
        std::fprintf(stderr, "make_reverb_library: cannot read %s\n", argv[1]);
        return 1;
    }
    const std::regex groupComment(R"(^/\*\s*(.+?)\.?\s+Presets\s*\*/)");
    const std::regex presetMacro(R"(^#define\s+EFX_REVERB_PRESET_([A-Z0-9_]+))");
    std::ostringstream rows;
    std::string group;
    int count = 0;
    for (std::string line; std::getline(header, line);) {
        std::smatch match;
        if (std::regex_search(line, match, groupComment)) {
            group = match[1];
        } else if (std::regex_search(line, match, presetMacro)) {
            const std::string tail = match[1];
            rows << "    {" << Quoted(group) << ", " << Quoted(ReadableName(tail, group)) << ", "
                 << Quoted("EFX_REVERB_PRESET_" + tail) << ", EFX_REVERB_PRESET_" << tail << "},\n";
            ++count;
        }
    }
    if (count == 0) {
        std::fprintf(stderr, "make_reverb_library: no EFX_REVERB_PRESET_ macro in %s\n", argv[1]);
        return 1;
    }
    std::ofstream out(argv[2]);
    out << "// Made by make_reverb_library from " << argv[1] << "; rebuilt with the build, never edited.\n"
        << "#include \"presets/StandardReverbLibrary.h\"\n\n"
        << "const StandardReverb kStandardReverbs[] = {\n"
        << rows.str() << "};\n"
        << "const std::size_t kStandardReverbCount = " << count << ";\n";
    if (!out) {
        std::fprintf(stderr, "make_reverb_library: cannot write %s\n", argv[2]);
        return 1;
    }
    return 0;
}
