#pragma once

// Saving a document so that no failure can cost the file already there: the document is written to
// a new file in the same folder, flushed to the disk, and renamed over the old one only when whole.
// A failed write (a full disk, a folder that cannot be written) leaves the old file as it was and
// removes the new one.

#include <string>

class CEFXPresetTree;

enum class SaveStatus {
    Saved,
    CannotOpen,  // no file can be made there: no name, a missing or read-only folder, a folder's name
    CannotWrite, // the new file could not be written whole, or not put in the old one's place
};

struct SaveResult {
    SaveStatus status = SaveStatus::CannotOpen;
    std::string reason; // the system's words for what failed
};

SaveResult SaveDocumentSafely(CEFXPresetTree& document, const std::string& path);
