// Any bytes as a .pwp file: parsed into settings or refused, never a crash.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "analysis/ProfileFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    pw::ParseProfileBytes(std::string_view(reinterpret_cast<const char*>(data), size));
    return 0;
}
