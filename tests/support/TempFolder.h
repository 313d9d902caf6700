#pragma once
// A fresh folder under the system's temporary folder, removed at the end of
// the test.
#include <filesystem>
#include <string>

#include "core/LineFile.h"

namespace pw::test {

class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::string& Path() const { return path_; }
    std::string File(const std::string& name) const { return JoinPath(path_, name); }
    bool Exists(const std::string& name) const { return std::filesystem::exists(File(name)); }
    std::string Read(const std::string& name) const { return ReadWholeFile(File(name), std::size_t(1) << 30); }
    void Write(const std::string& name, const std::string& bytes) const;

private:
    std::string path_;
};

}  // namespace pw::test
