// Any bytes as pw.ini: read, or an overflow run-time error.
#include <cstddef>
#include <cstdint>
#include <string>

#include "core/RunTimeError.h"
#include "shell/Settings.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    pw::Settings settings;
    try {
        pw::ReadSettingsText(std::string(reinterpret_cast<const char*>(data), size), settings);
        pw::WriteSettingsText(settings);
    } catch (const pw::RunTimeError&) {
    }
    return 0;
}
