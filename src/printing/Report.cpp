#include "printing/Report.h"

#include <algorithm>

#include "core/Numeric.h"
#include "core/Text.h"

namespace pw {

const char* const kReportNutrientNames[kShownNutrients] = {"Calories",    "Protein", "Carbohydrates", "Fat",
                                                           "Cholesterol", "Fiber",   "Calcium",       "Sodium"};

namespace {

// The column captions of the list's nutrients: the short names with the
// unit of the amounts.
const char* const kAmountCaptions[kShownNutrients] = {"Calories",         "Protein (g)", "Carbs (g)",
                                                      "Fats (g)",         "Cholesterol (mg)", "Fiber (g)",
                                                      "Calcium (mg)",     "Sodium (mg)"};
const char* const kPercentCaptions[kShownNutrients] = {"Calories (%DV)",    "Protein (%DV)", "Carbs (%DV)",
                                                       "Fats (%DV)",        "Cholesterol (%DV)", "Fiber (%DV)",
                                                       "Calcium (%DV)",     "Sodium (%DV)"};
// The same, shorter where a portrait page needs the width for the foods'
// names.
const char* const kShortAmountCaptions[kShownNutrients] = {"Calories",      "Protein (g)", "Carbs (g)",
                                                           "Fats (g)",      "Cholest. (mg)", "Fiber (g)",
                                                           "Calcium (mg)",  "Sodium (mg)"};
const char* const kSexNames[kSexOptions] = {"Female", "Male"};
const char* const kLifestyleNames[kLifestyleOptions] = {"Sedentary", "Light", "Moderate", "Active"};
constexpr const char* kNoEntry = "(none)";

std::string Option(int index, const char* const* names, int count)
{
    return index >= 0 && index < count ? names[index] : kNoEntry;
}

bool HaveDailyValues(const DailyValues& dailyValues)
{
    return std::all_of(dailyValues.begin(), dailyValues.end(), [](std::int32_t dv) { return dv != 0; });
}

std::int32_t PercentOf(std::int32_t total, std::int32_t dailyValue)
{
    return ToInt32(static_cast<double>(total) / static_cast<double>(dailyValue) * 100.0);
}

ReportBlock Heading(const std::string& text)
{
    ReportBlock block;
    block.kind = BlockKind::Heading;
    block.lines = {text};
    return block;
}

ReportBlock Lines(std::vector<std::string> lines)
{
    ReportBlock block;
    block.kind = BlockKind::Lines;
    block.lines = std::move(lines);
    return block;
}

ReportBlock Table(ReportTable table)
{
    ReportBlock block;
    block.kind = BlockKind::Table;
    block.table = std::move(table);
    return block;
}

// "Group / Subgroup / Description", leaving out empty parts.
std::string FullFoodName(const FoodListEntry& e)
{
    std::string name;
    for (const std::string* part : {&e.group, &e.subgroup, &e.description}) {
        if (part->empty())
            continue;
        if (!name.empty())
            name += " / ";
        name += *part;
    }
    return name;
}

// The foods of the analysis: quantity, measure, the full name and the eight
// amounts, then the totals.
ReportTable AnalysisFoods(const FoodList& list)
{
    ReportTable table;
    table.columns = {{"Qty", ColumnKind::Text}, {"Measure", ColumnKind::Text}, {"Food", ColumnKind::Text}};
    for (const char* caption : kShortAmountCaptions)
        table.columns.push_back({caption, ColumnKind::Number});
    for (int row = 1; row <= list.Count(); ++row) {
        const FoodListEntry& e = list.Entry(row);
        std::vector<std::string> cells = {e.quantityText, e.measure, FullFoodName(e)};
        for (int n = 0; n < kShownNutrients; ++n)
            cells.push_back(std::to_string(e.amounts[n]));
        table.rows.push_back(std::move(cells));
    }
    const NutrientValues totals = list.Totals();
    table.totals = {texts::kTotalRow, "", ""};
    for (int n = 0; n < kShownNutrients; ++n)
        table.totals.push_back(std::to_string(totals[n]));
    return table;
}

std::string Padded(const std::string& text, std::size_t width, ColumnKind kind)
{
    const std::string pad(width > text.size() ? width - text.size() : 0, ' ');
    return kind == ColumnKind::Number ? pad + text : text + pad;
}

void AppendTableText(const ReportTable& table, std::string& out)
{
    const std::size_t columns = table.columns.size();
    std::vector<std::size_t> widths(columns, 0);
    auto measure = [&](const std::vector<std::string>& cells) {
        for (std::size_t c = 0; c < columns && c < cells.size(); ++c)
            widths[c] = std::max(widths[c], cells[c].size());
    };
    std::vector<std::string> captions;
    for (const ReportColumn& column : table.columns)
        captions.push_back(column.caption);
    measure(captions);
    for (const auto& row : table.rows)
        measure(row);
    measure(table.totals);
    auto line = [&](const std::vector<std::string>& cells) {
        std::string text;
        for (std::size_t c = 0; c < columns; ++c) {
            if (c > 0)
                text += "  ";
            text += Padded(c < cells.size() ? cells[c] : std::string(), widths[c], table.columns[c].kind);
        }
        out += RTrim(text) + "\n";
    };
    line(captions);
    for (const auto& row : table.rows)
        line(row);
    if (!table.totals.empty())
        line(table.totals);
}

}  // namespace

void AppendCsvField(const std::string& field, std::string& out)
{
    if (field.find_first_of(",\"\r\n") == std::string::npos) {
        out += field;
        return;
    }
    out += '"';
    for (char c : field) {
        if (c == '"')
            out += '"';
        out += c;
    }
    out += '"';
}

void AppendCsvRow(const std::vector<std::string>& fields, std::string& out)
{
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i > 0)
            out += ',';
        AppendCsvField(fields[i], out);
    }
    out += kCrLf;
}

ChartData BuildChartData(const DailyValues& dailyValues, const NutrientValues& totals)
{
    ChartData chart;
    if (!HaveDailyValues(dailyValues))
        return chart;
    for (int n = 0; n < kShownNutrients; ++n)
        chart.bars.push_back({kReportNutrientNames[n], PercentOf(totals[n], dailyValues[n])});
    return chart;
}

std::vector<std::string> PersonLines(const Profile& p, const DailyValues& dailyValues)
{
    const ProfileInputs& in = p.inputs;
    const bool english = in.measurement == kMeasurementEnglish;
    std::vector<std::string> person = {"Name: " + (in.name.empty() ? std::string(kNoEntry) : in.name)};
    if (p.valid)
        person.push_back("Age: " + std::to_string(p.age) + " years (born 19" + in.yob + ")");
    person.push_back("Sex: " + Option(in.sex, kSexNames, kSexOptions));
    person.push_back("Height: " + in.height + (english ? " inches" : " cm"));
    person.push_back("Weight: " + in.weight + (english ? " pounds" : " kg"));
    person.push_back("Lifestyle: " + Option(in.lifestyle, kLifestyleNames, kLifestyleOptions));
    if (p.valid && HaveDailyValues(dailyValues)) {
        const BodyMassIndex bmi = ComputeBodyMassIndex(p.weightKilograms, p.heightCentimeters);
        person.push_back("BMI: " + std::to_string(bmi.rounded) + " (" + InterpretBodyMassIndex(bmi.rounded) + ")");
    }
    return person;
}

ReportDocument BuildAnalysisReport(const ReportSource& source)
{
    const Profile& p = source.profile;
    const ProfileInputs& in = p.inputs;
    ReportDocument report;
    report.title = texts::kAnalysisReportTitle;
    report.personName = in.name;
    report.dateText = source.dateText;

    std::vector<std::string> person = PersonLines(p, source.dailyValues);
    const bool analysed = p.valid && HaveDailyValues(source.dailyValues);
    report.blocks.push_back(Heading("Person"));
    report.blocks.push_back(Lines(std::move(person)));

    const NutrientValues totals = source.list.Totals();
    if (analysed) {
        ReportTable intake;
        intake.columns = {{"Nutrient", ColumnKind::Text},
                          {"Daily Value (DV)", ColumnKind::Number},
                          {"Daily Intake", ColumnKind::Number},
                          {"% of DV", ColumnKind::Number}};
        for (int n = 0; n < kShownNutrients; ++n) {
            const auto nutrient = static_cast<Nutrient>(n);
            intake.rows.push_back({kReportNutrientNames[n], DailyValueText(nutrient, source.dailyValues[n]),
                                   DailyValueText(nutrient, totals[n]),
                                   std::to_string(PercentOf(totals[n], source.dailyValues[n])) + "%"});
        }
        report.blocks.push_back(Heading("Daily intake"));
        report.blocks.push_back(Table(std::move(intake)));
        ReportBlock chart;
        chart.kind = BlockKind::Chart;
        chart.chart = BuildChartData(source.dailyValues, totals);
        report.blocks.push_back(std::move(chart));
    } else {
        report.blocks.push_back(Lines({texts::kNeedsCompleteProfile}));
    }

    report.blocks.push_back(Heading("Foods"));
    if (source.list.Count() == 0)
        report.blocks.push_back(Lines({"No foods in the list."}));
    else
        report.blocks.push_back(Table(AnalysisFoods(source.list)));
    return report;
}

ReportDocument BuildFoodListReport(const ReportSource& source, bool byUnits)
{
    ReportDocument report;
    report.title = texts::kFoodListReportTitle;
    report.personName = source.profile.inputs.name;
    report.dateText = source.dateText;
    report.landscape = true;

    const FoodList& list = source.list;
    // Percents need daily values; without them the amounts are printed.
    const bool percents = !byUnits && HaveDailyValues(source.dailyValues);
    ReportTable table;
    table.columns = {{"Qty", ColumnKind::Text},
                     {"Measure", ColumnKind::Text},
                     {"Group", ColumnKind::Text},
                     {"Subgroup", ColumnKind::Text},
                     {"Description", ColumnKind::Text}};
    for (int n = 0; n < kShownNutrients; ++n)
        table.columns.push_back({percents ? kPercentCaptions[n] : kAmountCaptions[n], ColumnKind::Number});
    for (int row = 1; row <= list.Count(); ++row) {
        const FoodListEntry& e = list.Entry(row);
        std::vector<std::string> cells = {e.quantityText, e.measure, e.group, e.subgroup, e.description};
        for (int n = 0; n < kShownNutrients; ++n)
            cells.push_back(std::to_string(percents ? e.percents[n] : e.amounts[n]));
        table.rows.push_back(std::move(cells));
    }
    const NutrientValues totals = list.Totals();
    table.totals = {texts::kTotalRow, "", "", "", ""};
    for (int n = 0; n < kShownNutrients; ++n)
        table.totals.push_back(
            std::to_string(percents ? PercentOf(totals[n], source.dailyValues[n]) : totals[n]));

    const std::size_t count = static_cast<std::size_t>(list.Count());
    report.blocks.push_back(Lines({std::to_string(count) + (count == 1 ? " food, " : " foods, ") +
                                   (percents ? "percent of daily value" : "amounts")}));
    report.blocks.push_back(Table(std::move(table)));
    return report;
}

std::string ReportText(const ReportDocument& report)
{
    std::string out = report.title + "\n" + "Date: " + report.dateText + "\n";
    for (const ReportBlock& block : report.blocks) {
        switch (block.kind) {
        case BlockKind::Heading: out += "\n" + block.lines.front() + "\n"; break;
        case BlockKind::Lines:
            for (const std::string& line : block.lines)
                out += line + "\n";
            break;
        case BlockKind::Table: AppendTableText(block.table, out); break;
        case BlockKind::Chart:
        case BlockKind::Series: break;
        }
    }
    return out;
}

std::string FoodListCsv(const FoodList& list)
{
    std::string csv = "\xEF\xBB\xBF";
    std::vector<std::string> header = {"Qty", "Measure", "Group", "Subgroup", "Description"};
    header.insert(header.end(), std::begin(kAmountCaptions), std::end(kAmountCaptions));
    AppendCsvRow(header, csv);
    for (int row = 1; row <= list.Count(); ++row) {
        const FoodListEntry& e = list.Entry(row);
        std::vector<std::string> fields;
        for (const std::string* text : {&e.quantityText, &e.measure, &e.group, &e.subgroup, &e.description})
            fields.push_back(Latin1ToUtf8(*text));
        for (int n = 0; n < kShownNutrients; ++n)
            fields.push_back(std::to_string(e.amounts[n]));
        AppendCsvRow(fields, csv);
    }
    const NutrientValues totals = list.Totals();
    std::vector<std::string> total = {texts::kTotalRow, "", "", "", ""};
    for (int n = 0; n < kShownNutrients; ++n)
        total.push_back(std::to_string(totals[n]));
    AppendCsvRow(total, csv);
    return csv;
}

std::string ProposedReportName(const std::string& personName, const std::string& dateText)
{
    std::string name;
    for (char c : Trim(personName))
        if (IsLegalFileName(std::string_view(&c, 1)) && static_cast<unsigned char>(c) >= 0x20)
            name += c;
    name = Trim(name);
    return (name.empty() ? std::string("Platewell") : name) + " " + dateText;
}

}  // namespace pw
