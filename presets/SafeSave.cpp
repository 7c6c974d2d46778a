#include "presets/SafeSave.h"

#include "presets/CEFXPresetTree.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <vector>

namespace {

SaveResult Failed(SaveStatus status, int error)
{
    return {status, std::strerror(error)};
}

// The mode a new file would get, or the old file's if there is one, so that a save keeps it.
mode_t ModeFor(const std::string& path)
{
    struct stat old{};
    if (::stat(path.c_str(), &old) == 0)
        return old.st_mode & 07777;
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

} // namespace

SaveResult SaveDocumentSafely(CEFXPresetTree& document, const std::string& path)
{
    if (path.empty())
        return Failed(SaveStatus::CannotOpen, ENOENT);
    std::error_code ignored;
    if (std::filesystem::is_directory(path, ignored))
        return Failed(SaveStatus::CannotOpen, EISDIR);
    const std::filesystem::path target(path);
    const std::filesystem::path folder = target.has_parent_path() ? target.parent_path() : ".";
    std::string pattern = (folder / ("." + target.filename().string() + ".XXXXXX")).string();
    std::vector<char> name(pattern.begin(), pattern.end());
    name.push_back('\0');
    const int descriptor = ::mkstemp(name.data());
    if (descriptor < 0)
        return Failed(SaveStatus::CannotOpen, errno);
    const std::string temporary(name.data());
    ::fchmod(descriptor, ModeFor(path));
    std::FILE* stream = ::fdopen(descriptor, "w+b");
    if (!stream) {
        const int error = errno;
        ::close(descriptor);
        ::unlink(temporary.c_str());
        return Failed(SaveStatus::CannotOpen, error);
    }
    // The stream keeps the reason of its first failed write in errno, which later calls may not reset.
    errno = 0;
    document.WriteFile(stream);
    const int writeError = errno;
    bool whole = std::fflush(stream) == 0 && !std::ferror(stream);
    int error = writeError ? writeError : errno;
    if (whole && ::fsync(::fileno(stream)) != 0) {
        whole = false;
        error = errno;
    }
    if (std::fclose(stream) != 0 && whole) {
        whole = false;
        error = errno;
    }
    if (whole && std::rename(temporary.c_str(), path.c_str()) != 0) {
        whole = false;
        error = errno;
    }
    if (!whole) {
        ::unlink(temporary.c_str());
        return Failed(SaveStatus::CannotWrite, error ? error : EIO);
    }
    // The rename itself reaches the disk with the folder.
    if (const int folderDescriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY); folderDescriptor >= 0) {
        ::fsync(folderDescriptor);
        ::close(folderDescriptor);
    }
    return {SaveStatus::Saved, {}};
}
