// Any bytes as data.dat: loads, is refused by its checksum, or raises a
// run-time error; never anything else.
#include <cstddef>
#include <cstdint>
#include <string>

#include "core/RunTimeError.h"
#include "fooddb/DataFile.h"
#include "shell/HelpTopics.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static pw::FoodTable table;
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    try {
        if (pw::LoadDatabaseHeader(bytes, table) == pw::HeaderResult::Ok) {
            pw::LoadDatabaseRecords(table);
            pw::DataVersionText(table.DataVersionLine);  // as the about box shows it
            table.DatabaseDirty = true;
            pw::SaveDatabaseToBytes(table);
        }
    } catch (const pw::RunTimeError&) {
    }
    return 0;
}
