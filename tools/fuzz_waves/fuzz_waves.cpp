// Feeds arbitrary bytes to the WAV reader as a file, then the same file to a live source the way
// the program loads one: the reader, the choice of an OpenAL format and the upload into a buffer
// of OpenAL Soft's null device. With AddressSanitizer and UndefinedBehaviorSanitizer on, any read
// past a chunk, write outside the record, leak or undefined operation ends the run. Beyond that it
// checks what the reader promises: a wave it accepts has its whole data chunk inside the file, a
// known type, and a record that the table hands back until it is deleted.

#include "engine/CWaves.h"
#include "engine/EFX_3DSource.h"
#include "engine/EFX_Factory.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

// The input lives in one in-memory file, rewritten for each run, so that the reader opens it by
// path as it opens a user's file, with no disk in the way.
struct InputFile {
    int fd = memfd_create("wave", 0);
    std::string path = "/proc/self/fd/" + std::to_string(fd);

    void Replace(const std::uint8_t* data, std::size_t size) const
    {
        if (fd < 0 || ftruncate(fd, 0) != 0
            || (size && pwrite(fd, data, size, 0) != static_cast<ssize_t>(size)))
            std::abort();
    }
};

// One factory, context and source for the whole run, as the program keeps them.
struct LiveSource {
    EFX_Factory* factory = nullptr;
    EFX_3DSource* source = nullptr;

    LiveSource()
    {
        EFX_Factory::SelectDevice("");
        factory = EFX_Factory::Create();
        if (!factory || factory->Initialize(0, 4) != 1 || !factory->CreateContext())
            std::abort();
        source = factory->CreateEmptySource();
        if (!source)
            std::abort();
    }
};

void CheckReader(const std::string& path, std::size_t size)
{
    CWaves waves;
    int id = -1;
    if (waves.LoadWaveFile(path.c_str(), &id) != CWaves::kOK)
        return;
    std::uint32_t dataSize = 0;
    void* data = nullptr;
    std::int32_t type = CWaves::kTypeUnknown;
    ALenum format = -1;
    if (waves.GetWaveSize(id, &dataSize) != CWaves::kOK || dataSize == 0 || dataSize > size
        || waves.GetWaveData(id, &data) != CWaves::kOK || !data
        || waves.GetWaveType(id, &type) != CWaves::kOK
        || (type != CWaves::kTypePCM && type != CWaves::kTypeExtensible))
        std::abort();
    // Every byte of the data was read from the file: touching it all lets the sanitizer see.
    volatile std::uint8_t sum = 0;
    for (std::uint32_t i = 0; i < dataSize; ++i)
        sum = sum + static_cast<const std::uint8_t*>(data)[i];
    const int found = waves.GetWaveALBufferFormat(id, &alGetEnumValue, &format);
    if ((found == CWaves::kOK) != (format != 0))
        std::abort();
    if (waves.DeleteWaveFile(id) != CWaves::kOK || waves.GetWaveSize(id, &dataSize) == CWaves::kOK)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const InputFile input;
    static LiveSource live;
    input.Replace(data, size);
    CheckReader(input.path, size);
    live.source->LoadFile(input.path.c_str());
    live.source->ClearLog();
    return 0;
}
