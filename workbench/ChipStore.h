// Where simulated chips persist between runs: one text file per chip type and sub-type in the
// user's profile, written whole to a temporary file and then put in place, so a stop at any moment
// leaves either the old or the new file, never a half-written one.
#pragma once

#include "workbench/SimulatedChip.h"

#include <string>

class ChipStore {
public:
    // folder empty: %APPDATA%\Regvane\Workbench.
    explicit ChipStore(std::wstring folder = {});
    const std::wstring& Folder() const { return m_folder; }
    // chip-47.txt, chip-47-138.txt
    std::wstring FileFor(int chipType, int subType) const;

    struct Loaded {
        bool fromFile = false;
        std::string warning; // a damaged file: what is wrong and where it was put aside
    };
    // Reads the saved images of the chip behind the page of this type and sub-type into a chip that
    // holds its start values. A damaged file is renamed to "<name>.damaged-<time>" and the chip keeps
    // its start values.
    Loaded Load(SimulatedChip& chip, int chipType, int subType) const;
    // Empty on success, else what went wrong.
    std::string Save(const SimulatedChip& chip, int chipType, int subType) const;

    // Any other small file of the workbench in the same folder, written the same safe way.
    std::string WriteFile(const std::wstring& name, const std::string& text) const;
    std::string ReadFile(const std::wstring& name) const;

private:
    std::wstring m_folder;
};

// Creates the folder and every missing folder above it.
bool MakeFolders(const std::wstring& folder);
