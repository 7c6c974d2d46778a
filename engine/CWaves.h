#pragma once

#include <AL/al.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>

// The format block of a wave as the file stores it, little-endian, 40 bytes. A plain PCM file fills
// only the first 16 bytes; an extensible one fills all of them.
struct WAVEFORMATEXTENSIBLE {
    std::uint16_t wFormatTag;
    std::uint16_t nChannels;
    std::uint32_t nSamplesPerSec;
    std::uint32_t nAvgBytesPerSec;
    std::uint16_t nBlockAlign;
    std::uint16_t wBitsPerSample;
    std::uint16_t cbSize;
    std::uint16_t wValidBitsPerSample;
    std::uint32_t dwChannelMask;
    std::uint8_t SubFormat[16];
};
static_assert(sizeof(WAVEFORMATEXTENSIBLE) == 40, "the format block is 40 bytes, as in the file");
static_assert(offsetof(WAVEFORMATEXTENSIBLE, dwChannelMask) == 20);

// One loaded wave. The reader owns the data and the record.
struct WAVEFILEINFO {
    std::int32_t wfType;            // CWaves::kTypeUnknown, kTypePCM or kTypeExtensible
    WAVEFORMATEXTENSIBLE wfEXT;
    char* pData;
    std::uint32_t ulDataSize;       // size of the "data" chunk in bytes
    std::FILE* pFile;               // open only while the file is being read
    std::uint32_t ulDataOffset;     // position of the sample data in the file
};

// Reads RIFF WAVE files and says which OpenAL buffer format fits each. Keeps a table of the waves
// loaded at the moment and hands out their indices as identifiers. Logs nothing: every operation
// answers with a result code, 0 for success and a negative number for failure.
class CWaves {
public:
    static constexpr int kMaxWaves = 1024;

    // Result codes.
    static constexpr int kOK = 0;
    static constexpr int kCannotOpen = -1;
    static constexpr int kBadFile = -2;         // not a usable RIFF WAVE file, or data not read whole
    static constexpr int kBadArgument = -3;     // a null argument where one is required
    static constexpr int kUnknownId = -4;
    static constexpr int kOutOfMemory = -14;    // also: no free entry in the table
    static constexpr int kNoFormat = -16;       // no OpenAL format for this wave

    // Values of wfType.
    static constexpr std::int32_t kTypeUnknown = 0;
    static constexpr std::int32_t kTypePCM = 1;
    static constexpr std::int32_t kTypeExtensible = 2;

    // Answers an AL format name with its value, 0 when unknown; the engine passes alGetEnumValue.
    using FormatResolver = ALenum (*)(const ALchar* name);

    CWaves();
    // Frees every wave still in the table.
    virtual ~CWaves();

    CWaves(const CWaves&) = delete;
    CWaves& operator=(const CWaves&) = delete;

    int LoadWaveFile(const char* path, int* id);
    int DeleteWaveFile(int id);
    int GetWaveType(int id, std::int32_t* type);
    // The data stays owned by the reader until DeleteWaveFile.
    int GetWaveData(int id, void** data);
    int GetWaveSize(int id, std::uint32_t* size);
    int GetWaveFrequency(int id, std::uint32_t* rate);
    int GetWaveALBufferFormat(int id, FormatResolver resolver, ALenum* format);

private:
    int ParseFile(const char* path, WAVEFILEINFO* info);
    // The record of id, or null when id is not below the table size (compared as unsigned) or free.
    WAVEFILEINFO* Find(int id) const;
    static void Free(WAVEFILEINFO* info);

    WAVEFILEINFO* m_waves[kMaxWaves];
};
