// The WAV reader: the RIFF walk, the table of loaded waves and the choice of the OpenAL format.
#include "engine/CWaves.h"

#include <sys/types.h>

#include <cctype>
#include <cstring>
#include <new>

namespace {

constexpr std::size_t kFormatBlockSize = sizeof(WAVEFORMATEXTENSIBLE);
constexpr std::size_t kPCMFormatSize = 16;       // what a plain PCM file's format block fills
constexpr std::uint16_t kTagPCM = 1;
constexpr std::uint16_t kTagExtensible = 0xFFFE;

struct ChunkHeader {
    char id[4];
    std::uint32_t size;
};

std::uint16_t ReadLE16(const unsigned char* bytes)
{
    return static_cast<std::uint16_t>(bytes[0] | (bytes[1] << 8));
}

std::uint32_t ReadLE32(const unsigned char* bytes)
{
    return static_cast<std::uint32_t>(bytes[0]) | (static_cast<std::uint32_t>(bytes[1]) << 8)
        | (static_cast<std::uint32_t>(bytes[2]) << 16) | (static_cast<std::uint32_t>(bytes[3]) << 24);
}

// RIFF identifiers are compared without regard to case: some writers spell them in small letters.
bool SameId(const char* id, const char* expected)
{
    for (int i = 0; i < 4; ++i) {
        const auto a = static_cast<unsigned char>(id[i]);
        const auto b = static_cast<unsigned char>(expected[i]);
        if (std::tolower(a) != std::tolower(b))
            return false;
    }
    return true;
}

bool ReadChunkHeader(std::FILE* file, ChunkHeader& header)
{
    unsigned char bytes[8];
    if (std::fread(bytes, 1, sizeof bytes, file) < sizeof bytes)
        return false;
    std::memcpy(header.id, bytes, 4);
    header.size = ReadLE32(bytes + 4);
    return true;
}

void SkipBytes(std::FILE* file, std::uint64_t count)
{
    // A size that runs past the end is no error here: the next header read simply comes up short.
    fseeko(file, static_cast<off_t>(count), SEEK_CUR);
}

// The file's format block, decoded field by field from its little-endian bytes.
WAVEFORMATEXTENSIBLE DecodeFormat(const unsigned char* b)
{
    WAVEFORMATEXTENSIBLE f{};
    f.wFormatTag = ReadLE16(b);
    f.nChannels = ReadLE16(b + 2);
    f.nSamplesPerSec = ReadLE32(b + 4);
    f.nAvgBytesPerSec = ReadLE32(b + 8);
    f.nBlockAlign = ReadLE16(b + 12);
    f.wBitsPerSample = ReadLE16(b + 14);
    f.cbSize = ReadLE16(b + 16);
    f.wValidBitsPerSample = ReadLE16(b + 18);
    f.dwChannelMask = ReadLE32(b + 20);
    std::memcpy(f.SubFormat, b + 24, sizeof f.SubFormat);
    return f;
}

// A "fmt " chunk of at most 40 bytes. Bytes that the chunk, or a file cut short, does not have
// read as zero.
void ReadFormatChunk(std::FILE* file, std::uint32_t size, WAVEFILEINFO* info)
{
    unsigned char block[kFormatBlockSize] = {};
    if (std::fread(block, 1, size, file) == 0)
        return;
    const WAVEFORMATEXTENSIBLE format = DecodeFormat(block);
    if (format.wFormatTag == kTagPCM) {
        info->wfType = CWaves::kTypePCM;
        info->wfEXT = WAVEFORMATEXTENSIBLE{};
        std::memcpy(&info->wfEXT, &format, kPCMFormatSize);
    } else if (format.wFormatTag == kTagExtensible) {
        info->wfType = CWaves::kTypeExtensible;
        info->wfEXT = format;
    }
}

// Which AL format name fits a wave. Only 16 bits counts as 16-bit: 24- and 32-bit data get the
// 8-bit names, and the sub-format of an extensible file is not looked at.
enum class Bits { Sixteen, NotSixteen };

struct FormatRow {
    std::int32_t type;
    std::uint16_t channels;
    Bits bits;
    std::uint32_t mask;     // looked at for extensible files only
    const char* name;
};

constexpr FormatRow kFormatTable[] = {
    {CWaves::kTypePCM, 1, Bits::Sixteen, 0, "AL_FORMAT_MONO16"},
    {CWaves::kTypePCM, 1, Bits::NotSixteen, 0, "AL_FORMAT_MONO8"},
    {CWaves::kTypePCM, 2, Bits::Sixteen, 0, "AL_FORMAT_STEREO16"},
    {CWaves::kTypePCM, 2, Bits::NotSixteen, 0, "AL_FORMAT_STEREO8"},
    {CWaves::kTypePCM, 4, Bits::Sixteen, 0, "AL_FORMAT_QUAD16"},
    {CWaves::kTypeExtensible, 1, Bits::Sixteen, 0x04, "AL_FORMAT_MONO16"},
    {CWaves::kTypeExtensible, 1, Bits::NotSixteen, 0x04, "AL_FORMAT_MONO8"},
    {CWaves::kTypeExtensible, 2, Bits::Sixteen, 0x03, "AL_FORMAT_STEREO16"},
    {CWaves::kTypeExtensible, 2, Bits::NotSixteen, 0x03, "AL_FORMAT_STEREO8"},
    {CWaves::kTypeExtensible, 2, Bits::Sixteen, 0x30, "AL_FORMAT_REAR16"},
    {CWaves::kTypeExtensible, 4, Bits::Sixteen, 0x33, "AL_FORMAT_QUAD16"},
    {CWaves::kTypeExtensible, 6, Bits::Sixteen, 0x3F, "AL_FORMAT_51CHN16"},
    {CWaves::kTypeExtensible, 7, Bits::Sixteen, 0x13F, "AL_FORMAT_61CHN16"},
    {CWaves::kTypeExtensible, 8, Bits::Sixteen, 0x63F, "AL_FORMAT_71CHN16"},
};

const char* FormatName(const WAVEFILEINFO& info)
{
    const Bits bits = info.wfEXT.wBitsPerSample == 16 ? Bits::Sixteen : Bits::NotSixteen;
    for (const FormatRow& row : kFormatTable) {
        if (row.type != info.wfType || row.channels != info.wfEXT.nChannels || row.bits != bits)
            continue;
        if (row.type == CWaves::kTypeExtensible && row.mask != info.wfEXT.dwChannelMask)
            continue;
        return row.name;
    }
    return nullptr;
}

std::uint64_t FileLength(std::FILE* file)
{
    const off_t here = ftello(file);
    fseeko(file, 0, SEEK_END);
    const off_t end = ftello(file);
    fseeko(file, here, SEEK_SET);
    return end < 0 ? 0 : static_cast<std::uint64_t>(end);
}

} // namespace

CWaves::CWaves()
{
    for (WAVEFILEINFO*& wave : m_waves)
        wave = nullptr;
}

CWaves::~CWaves()
{
    for (WAVEFILEINFO*& wave : m_waves) {
        Free(wave);
        wave = nullptr;
    }
}

void CWaves::Free(WAVEFILEINFO* info)
{
    if (!info)
        return;
    delete[] info->pData;
    if (info->pFile)
        std::fclose(info->pFile);
    delete info;
}

WAVEFILEINFO* CWaves::Find(int id) const
{
    const auto index = static_cast<unsigned>(id);
    return index < static_cast<unsigned>(kMaxWaves) ? m_waves[index] : nullptr;
}

int CWaves::ParseFile(const char* path, WAVEFILEINFO* info)
{
    if (!path || !info)
        return kBadArgument;
    *info = WAVEFILEINFO{};
    info->pFile = std::fopen(path, "rb");
    if (!info->pFile)
        return kCannotOpen;

    unsigned char riff[12];
    if (std::fread(riff, 1, sizeof riff, info->pFile) < sizeof riff
        || !SameId(reinterpret_cast<const char*>(riff), "RIFF")
        || !SameId(reinterpret_cast<const char*>(riff + 8), "WAVE"))
        return kBadFile; // the caller closes the file with the record

    ChunkHeader chunk;
    while (ReadChunkHeader(info->pFile, chunk)) {
        if (SameId(chunk.id, "fmt ")) {
            if (chunk.size <= kFormatBlockSize)
                ReadFormatChunk(info->pFile, chunk.size, info);
            else
                SkipBytes(info->pFile, chunk.size);
        } else if (SameId(chunk.id, "data")) {
            info->ulDataSize = chunk.size;
            info->ulDataOffset = static_cast<std::uint32_t>(ftello(info->pFile));
            SkipBytes(info->pFile, chunk.size);
        } else {
            SkipBytes(info->pFile, chunk.size);
        }
        if (chunk.size & 1)
            SkipBytes(info->pFile, 1);
    }

    if (info->ulDataSize && info->ulDataOffset
        && (info->wfType == kTypePCM || info->wfType == kTypeExtensible))
        return kOK;
    std::fclose(info->pFile);
    info->pFile = nullptr;
    return kBadFile;
}

int CWaves::LoadWaveFile(const char* path, int* id)
{
    auto* info = new (std::nothrow) WAVEFILEINFO{};
    if (!info)
        return kOutOfMemory;

    int code = ParseFile(path, info);
    if (code < 0) {
        Free(info);
        return code;
    }

    // A data chunk that runs past the end of the file cannot be read whole. Saying so before the
    // allocation keeps a forged size from asking for gigabytes; the result is the same -2.
    if (static_cast<std::uint64_t>(info->ulDataOffset) + info->ulDataSize > FileLength(info->pFile)) {
        code = kBadFile;
    } else {
        info->pData = new (std::nothrow) char[info->ulDataSize];
        if (!info->pData) {
            code = kOutOfMemory;
        } else {
            fseeko(info->pFile, static_cast<off_t>(info->ulDataOffset), SEEK_SET);
            if (std::fread(info->pData, 1, info->ulDataSize, info->pFile) < info->ulDataSize) {
                delete[] info->pData;
                info->pData = nullptr;
                code = kBadFile;
            }
        }
    }

    if (code == kOK) {
        code = kOutOfMemory; // unless a free entry turns up
        for (int index = 0; index < kMaxWaves; ++index) {
            if (!m_waves[index]) {
                m_waves[index] = info;
                if (id)
                    *id = index;
                code = kOK;
                break;
            }
        }
        if (code != kOK) {
            delete[] info->pData;
            info->pData = nullptr;
        }
    }

    std::fclose(info->pFile);
    info->pFile = nullptr;
    if (code != kOK)
        Free(info);
    return code;
}

int CWaves::DeleteWaveFile(int id)
{
    WAVEFILEINFO* info = Find(id);
    if (!info)
        return kUnknownId;
    Free(info);
    m_waves[static_cast<unsigned>(id)] = nullptr;
    return kOK;
}

int CWaves::GetWaveType(int id, std::int32_t* type)
{
    const WAVEFILEINFO* info = Find(id);
    if (!info)
        return kUnknownId;
    if (!type)
        return kBadArgument;
    *type = info->wfType;
    return kOK;
}

int CWaves::GetWaveData(int id, void** data)
{
    const WAVEFILEINFO* info = Find(id);
    if (!info)
        return kUnknownId;
    if (!data)
        return kBadArgument;
    *data = info->pData;
    return kOK;
}

int CWaves::GetWaveSize(int id, std::uint32_t* size)
{
    const WAVEFILEINFO* info = Find(id);
    if (!info)
        return kUnknownId;
    if (!size)
        return kBadArgument;
    *size = info->ulDataSize;
    return kOK;
}

int CWaves::GetWaveFrequency(int id, std::uint32_t* rate)
{
    const WAVEFILEINFO* info = Find(id);
    if (!info)
        return kUnknownId;
    if (!rate)
        return kBadArgument;
    *rate = info->wfEXT.nSamplesPerSec;
    return kOK;
}

int CWaves::GetWaveALBufferFormat(int id, FormatResolver resolver, ALenum* format)
{
    const WAVEFILEINFO* info = Find(id);
    if (!info)
        return kUnknownId;
    if (!resolver || !format)
        return kBadArgument;
    *format = 0;
    const char* name = FormatName(*info);
    if (!name)
        return kNoFormat;
    const ALenum value = resolver(name);
    if (!value)
        return kNoFormat;
    *format = value;
    return kOK;
}
