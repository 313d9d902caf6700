#include "printing/Report.h"

#include "analysis/DailyValues.h"
#include "analysis/Profile.h"
#include "foodlist/FoodList.h"
#include "shell/Session.h"
#include "shell/Settings.h"

namespace pw {

namespace {

const char* const kNutrientNames[kShownNutrients] = {"Calories", "Protein",  "Carbohydrates", "Fat",
                                                     "Cholesterol", "Fiber", "Calcium", "Sodium"};
const char* const kSexNames[] = {"Female", "Male"};
const char* const kLifestyleNames[] = {"Sedentary", "Light", "Moderate", "Active"};

const char* const kStyle =
    "<style>body{font-family:sans-serif;font-size:9pt} h1{font-size:14pt} h2{font-size:11pt}"
    " th{text-align:left;border-bottom:1px solid #444} td.n,th.n{text-align:right}"
    " tr.total td{border-top:1px solid #444;font-weight:bold}</style>";

std::string Head(const std::string& title, const std::string& dateText)
{
    return "<html><head>" + std::string(kStyle) + "</head><body><h1>" + EscapeHtml(title) + "</h1><p>" +
           EscapeHtml(dateText) + "</p>";
}

std::string Cell(const std::string& text, bool number = false)
{
    return std::string(number ? "<td class=\"n\">" : "<td>") + EscapeHtml(text) + "</td>";
}

std::string Option(int index, const char* const* names, int count)
{
    return index >= 0 && index < count ? names[index] : "(none)";
}

// The rows of the list with a totals row, the nutrients as the grid shows
// them in the given view.
std::string FoodTableHtml(const Session& session, bool byUnits)
{
    const FoodList& list = session.foodList;
    std::string html = "<table cellspacing=\"0\" cellpadding=\"3\" width=\"100%\"><tr>";
    for (int c = 0; c < kGridColumns; ++c)
        html += std::string(c >= kFirstNutrientColumn ? "<th class=\"n\">" : "<th>") + kColumnCaptions[c] + "</th>";
    html += "</tr>";
    for (int row = 1; row <= list.Count(); ++row) {
        html += "<tr>";
        for (int c = 0; c < kGridColumns; ++c)
            html += Cell(GridCellText(list.Entry(row), c, byUnits), c >= kFirstNutrientColumn);
        html += "</tr>";
    }
    const NutrientValues totals = list.Totals();
    html += "<tr class=\"total\"><td colspan=\"" + std::to_string(kFirstNutrientColumn) + "\">Total</td>";
    for (int n = 0; n < kShownNutrients; ++n) {
        const auto style = byUnits ? IntakeStyle::Units : IntakeStyle::PercentUnspaced;
        html += Cell(DailyIntakeText(static_cast<Nutrient>(n), totals[n], session.dailyValues[n], style), true);
    }
    return html + "</tr></table>";
}

}  // namespace

std::string EscapeHtml(const std::string& text)
{
    std::string out;
    out.reserve(text.size());
    for (char c : text) {
        switch (c) {
        case '&': out += "&amp;"; break;
        case '<': out += "&lt;"; break;
        case '>': out += "&gt;"; break;
        case '"': out += "&quot;"; break;
        default: out += c;
        }
    }
    return out;
}

std::string FoodListReportHtml(const Session& session, bool byUnits, const std::string& dateText)
{
    std::string html = Head("Platewell - Food List", dateText);
    const std::string& name = session.profile.inputs.name;
    if (!name.empty())
        html += "<p>" + EscapeHtml(name) + "</p>";
    html += "<p>" + std::to_string(session.foodList.Count()) + (session.foodList.Count() == 1 ? " food" : " foods") +
            (byUnits ? ", amounts" : ", percent of daily value") + "</p>";
    return html + FoodTableHtml(session, byUnits) + "</body></html>";
}

std::string AnalysisReportHtml(const Session& session, const std::string& dateText)
{
    const Profile& p = session.profile;
    const ProfileInputs& in = p.inputs;
    const bool english = in.measurement == kMeasurementEnglish;
    std::string html = Head("Platewell - Analysis", dateText);

    html += "<h2>Profile</h2><table cellpadding=\"2\">";
    auto row = [&html](const std::string& label, const std::string& value) {
        html += "<tr><td>" + EscapeHtml(label) + "</td><td>" + EscapeHtml(value) + "</td></tr>";
    };
    row("Name:", in.name);
    row("Year of birth:", in.yob.empty() ? std::string() : "19" + in.yob);
    row("Height:", in.height + (english ? " inches" : " cm"));
    row("Weight:", in.weight + (english ? " pounds" : " kg"));
    row("Sex:", Option(in.sex, kSexNames, 2));
    row("Lifestyle:", Option(in.lifestyle, kLifestyleNames, 4));
    html += "</table>";
    if (!p.valid)
        return html + "<p>The analysis needs a complete profile.</p></body></html>";

    const BodyMassIndex bmi = ComputeBodyMassIndex(p.weightKilograms, p.heightCentimeters);
    html += "<h2>Summary</h2><table cellpadding=\"2\">";
    row("Age:", std::to_string(p.age) + " years");
    row("BMI:", std::to_string(bmi.rounded) + " (" + InterpretBodyMassIndex(bmi.rounded) + ")");
    html += "</table>";

    const NutrientValues totals = session.foodList.Totals();
    html += "<h2>Daily intake</h2><table cellspacing=\"0\" cellpadding=\"3\"><tr><th>Nutrient</th>"
            "<th class=\"n\">Daily Value (DV)</th><th class=\"n\">Daily Intake</th><th class=\"n\">% of DV</th></tr>";
    for (int n = 0; n < kShownNutrients; ++n) {
        const auto nutrient = static_cast<Nutrient>(n);
        html += "<tr>" + Cell(kNutrientNames[n]) + Cell(DailyValueText(nutrient, session.dailyValues[n]), true) +
                Cell(DailyIntakeText(nutrient, totals[n], session.dailyValues[n], IntakeStyle::Units), true) +
                Cell(DailyIntakeText(nutrient, totals[n], session.dailyValues[n], IntakeStyle::PercentSpaced), true) +
                "</tr>";
    }
    html += "</table><h2>Foods</h2>";
    if (session.foodList.Count() == 0)
        return html + "<p>No foods in the list.</p></body></html>";
    return html + FoodTableHtml(session, true) + "</body></html>";
}

}  // namespace pw
