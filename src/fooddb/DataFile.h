#pragma once
// The data file data.dat: a version line holding the scramble seed, the
// scrambled last index and checksum, then one record line per food with
// every field scrambled on its own and followed by a TAB.
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "fooddb/FoodTable.h"

namespace pw {

// The digit string the shifts are taken from; reader and writer share it.
// Its digits are 0 to 4 only, so every shift is negative (-5 to -1): a
// printable Latin-1 character (32 to 255) stays within 27 to 254 and never
// becomes a TAB, CR or LF.
std::string ShiftDigits();

// The digit string of earlier versions, whose shifts of +1 to +5 could push
// the last characters of Latin-1 past 255. Files it wrote are still read.
std::string LegacyShiftDigits();

// Fills both tables for a seed; seed 0 leaves them all zero (plain text).
// A read position below 1 (seeds of 5 or less can reach one) is an error.
ShiftTables BuildShiftTables(std::int16_t seed, const std::string& digits = ShiftDigits());

// Shifts each character at 1-based position p by the table's entry p. A text
// longer than 75 characters is a subscript error, a code leaving 0..255 an
// invalid-call error.
std::string ScrambleField(std::string_view text, const ShiftTables& tables);
std::string UnscrambleField(std::string_view text, const ShiftTables& tables);

// Sum of the byte codes in 16-bit signed arithmetic; overflow is an error.
std::int16_t CharSum(std::string_view text);

// The seed of a version line: the leading number after its first "." (the
// whole line when it has no "."), as a 16-bit integer.
std::int16_t SeedFromVersionLine(std::string_view versionLine);

// Sets the version line, the seed it carries and the shift tables.
void SetDataVersion(FoodTable& table, const std::string& versionLine);

enum class HeaderResult { Ok, ChecksumMismatch };

// Part one of loading: the header and the raw record lines, from the bytes of
// a data file. A checksum that does not match returns ChecksumMismatch with
// the table's records untouched.
HeaderResult LoadDatabaseHeader(std::string_view bytes, FoodTable& table);

// Called once per record while loading or saving, so a window can keep
// painting; the argument is the record index.
using RecordProgress = std::function<void(int)>;

// Part two: turns the raw record lines into records and computes Calories.
void LoadDatabaseRecords(FoodTable& table, const RecordProgress& progress = {});

// The record line of one food, with the given group letter ("" for none).
std::string BuildRecordLine(const FoodRecord& record, std::string_view letter, const ShiftTables& tables);

// The bytes of the data file; when the table is dirty the raw lines are
// rebuilt from the records first and the dirty flag is cleared.
std::string SaveDatabaseToBytes(FoodTable& table, const RecordProgress& progress = {});

// SaveDatabaseToBytes written over path through a temporary file.
void SaveDatabase(FoodTable& table, const std::string& path, const RecordProgress& progress = {});

}  // namespace pw
