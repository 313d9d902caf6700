#include "TempFolder.h"

#include <fstream>
#include <random>
#include <stdexcept>

namespace pw::test {

TempFolder::TempFolder()
{
    std::random_device rd;
    auto base = std::filesystem::temp_directory_path();
    for (int attempt = 0; attempt < 100; ++attempt) {
        auto candidate = base / ("platewell-test-" + std::to_string(rd()));
        if (std::filesystem::create_directory(candidate)) {
            path_ = candidate.string();
            return;
        }
    }
    throw std::runtime_error("cannot create a temporary folder");
}

TempFolder::~TempFolder()
{
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
}

void TempFolder::Write(const std::string& name, const std::string& bytes) const
{
    std::ofstream out(File(name), std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

}  // namespace pw::test
