#pragma once
// Small food tables and data files that tests build with the project's own
// writer.
#include <optional>
#include <string>
#include <vector>

#include "core/RunTimeError.h"
#include "fooddb/FoodTable.h"

namespace pw::test {

inline constexpr const char* kTestVersionLine = "v1.37 Test data";

FoodRecord Food(const std::string& group, const std::string& subgroup, const std::string& description,
                const std::string& measure, int protein, int carbs, int fats, int cholesterol = 0, int fiber = 0,
                int calcium = 0, int sodium = 0, int alcohol = 0);

// A sorted table of a dozen foods in five groups, Favorites holding its one
// empty-description record.
FoodTable SampleTable(const std::string& versionLine = kTestVersionLine);

// The bytes of a data file holding table.
std::string DataFileBytes(FoodTable table);

// The table a data file's bytes hold; a header other than Ok fails the test.
FoodTable LoadTable(const std::string& bytes);

// Every record of table, in order.
std::vector<FoodRecord> Records(const FoodTable& table);

// The kind of run-time error that call raises, or none.
template <typename Call>
std::optional<ErrorKind> ErrorKindOf(Call&& call)
{
    try {
        call();
    } catch (const RunTimeError& e) {
        return e.Kind();
    }
    return std::nullopt;
}

// Writes data.dat, a tips.txt of three tips and, when settings is not
// empty, pw.ini into folder.
void WriteProgramFolder(const std::string& folder, const std::string& dataBytes, const std::string& settings = {});

}  // namespace pw::test
