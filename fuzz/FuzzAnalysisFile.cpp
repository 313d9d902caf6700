// Any bytes as a .pwl file: parsed into profile settings and items, or
// refused, never a crash.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "analysis/AnalysisFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    pw::ParseAnalysisBytes(std::string_view(reinterpret_cast<const char*>(data), size));
    return 0;
}
