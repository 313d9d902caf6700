#include "dbmaker/DatabaseMaker.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <limits>
#include <numeric>
#include <map>
#include <optional>
#include <set>
#include <stdexcept>
#include <tuple>

#include "dbmaker/FoodNames.h"
#include "core/LineFile.h"
#include "fooddb/DataFile.h"

namespace pw::dbmaker {

namespace {

using usda::FoodDescription;

// ---- where a USDA group goes ----------------------------------------------

constexpr std::string_view kBakery = "Bakery and Grains";
constexpr std::string_view kBeverages = "Beverages";
constexpr std::string_view kCondiments = "Condiments";
constexpr std::string_view kDairy = "Dairy and Eggs";
constexpr std::string_view kDesserts = "Desserts and Sweets";
constexpr std::string_view kFastFoods = "Fast Foods";
constexpr std::string_view kFatsOils = "Fats and Oils";
constexpr std::string_view kFruits = "Fruits";
constexpr std::string_view kMeals = "Meals, Entrees and Sidedishes";
constexpr std::string_view kMeats = "Meats";
constexpr std::string_view kNuts = "Nuts, Seeds, Legumes, Beans";
constexpr std::string_view kPoultry = "Poultry";
constexpr std::string_view kSeafood = "Seafood";
constexpr std::string_view kSnacks = "Snacks";
constexpr std::string_view kSoups = "Soups";
constexpr std::string_view kVegetables = "Vegetables";

struct GroupRoute {
    std::string_view code;
    std::string_view group;  // empty: left out
};

constexpr GroupRoute kRoutes[] = {
    {"0100", kDairy},    {"0200", kCondiments}, {"0300", {}},         {"0400", kFatsOils},      {"0500", kPoultry},
    {"0600", kSoups},    {"0700", kMeats},      {"0800", kBakery},    {"0900", kFruits},    {"1000", kMeats},
    {"1100", kVegetables}, {"1200", kNuts},     {"1300", kMeats},     {"1400", kBeverages}, {"1500", kSeafood},
    {"1600", kNuts},     {"1700", kMeats},      {"1800", kBakery},    {"1900", kDesserts},  {"2000", kBakery},
    {"2100", kFastFoods}, {"2200", kMeals},     {"2500", kSnacks},    {"3500", {}},
};

// Baked products that are eaten as desserts, by their first part.
constexpr std::string_view kDessertBakes[] = {
    "cake", "cakes", "cookies", "cookie", "pie", "pies", "brownies", "doughnuts", "danish pastry", "sweet rolls",
    "cream puffs", "eclairs", "toaster pastries", "coffeecake", "strudel", "cobbler", "cheesecake",
};

// Fats-and-oils products that are used as condiments, by the start of their
// first part.
constexpr std::string_view kDressings[] = {"salad dressing", "creamy dressing", "mayonnaise", "sandwich spread"};

// Words in the soups-and-sauces group that make a food a soup rather than a
// sauce or gravy.
constexpr std::string_view kSoupWords[] = {"soup", "chowder", "broth", "bouillon", "consomme", "bisque", "stew"};

// Leading parts that only repeat the group's name; they are dropped so that
// the next part becomes the subgroup ("Soup, tomato, canned" -> "Tomato").
struct GroupPrefix {
    std::string_view group;
    std::string_view prefix;
};
constexpr GroupPrefix kGroupPrefixes[] = {
    {kSoups, "soup"},          {kFastFoods, "fast foods"},          {kFastFoods, "fast food"},
    {kSnacks, "snacks"},       {kSnacks, "snack"},                  {kBeverages, "beverages"},
    {kBeverages, "beverage"},  {kBeverages, "alcoholic beverage"},  {kBeverages, "alcoholic beverages"},
    {kDesserts, "snacks"},     {kDairy, "beverage"},
};

// Long descriptions whose commas do not separate general from specific: a
// product name written in capitals around its commas.
constexpr std::pair<std::string_view, std::string_view> kLongDescRewrites[] = {
    {"Egg, Cheese and Sausage Griddle Cake Sandwich", "Griddle cake sandwich, egg, cheese and sausage"},
    {"Egg, Cheese and Bacon Griddle Cake Sandwich", "Griddle cake sandwich, egg, cheese and bacon"},
    {"Sausage Griddle Cake Sandwich", "Griddle cake sandwich, sausage"},
};

// Subgroups that do not say what they are on their own, in their group.
struct SubgroupRename {
    std::string_view group;
    std::string_view from;
    std::string_view to;
};
constexpr SubgroupRename kSubgroupRenames[] = {
    {kBeverages, "Distilled", "Distilled spirits"},
    {kSnacks, "Corn-based", "Corn-based snacks"},
    {kFastFoods, "Entrees", "Fast-food entrees"},
    {kFastFoods, "Side dishes", "Fast-food side dishes"},
    {kBeverages, "Rice (sake)", "Sake"},
};

// First parts that only name a family of foods: the next part is the
// subgroup ("Fish, salmon, Atlantic, farmed" -> "Salmon" / "Atlantic, farmed").
constexpr std::string_view kFamilyParts[] = {"fish", "mollusks", "crustaceans", "nuts", "seeds"};

// Spellings of one subgroup that USDA writes in more than one way.
constexpr std::pair<std::string_view, std::string_view> kSubgroupAliases[] = {
    {"Cereals ready to eat", "Cereals ready-to-eat"},
    {"Cereal ready-to-eat", "Cereals ready-to-eat"},
    {"Frozen novelites", "Frozen novelties"},
    {"Waffle", "Waffles"},
    {"Pudding", "Puddings"},
    {"Formulated bar", "Formulated bars"},
    {"Breakfast bar", "Breakfast bars"},
    {"Chicken rice", "Chicken with rice"},
    {"Beef broth or bouillon canned", "Beef broth or bouillon"},
};

// The records each group may hold; together with the Favorites entry they
// leave a few hundred of the table's 4,000 places free for the user's foods.
struct GroupBudget {
    std::string_view group;
    int records;
};
constexpr GroupBudget kBudgets[] = {
    {kBakery, 370},    {kBeverages, 190}, {kCondiments, 180}, {kDairy, 270},  {kDesserts, 330},
    {kFastFoods, 170}, {kFatsOils, 110},  {kFruits, 310},     {kMeals, 45},   {kMeats, 370},
    {kNuts, 240},      {kPoultry, 180},   {kSeafood, 190},    {kSnacks, 140}, {kSoups, 170},
    {kVegetables, 440},
};

// Words that make a food less likely to be the one a person looks for: each
// counts as two more parts of its name when foods compete for a group's
// places.
constexpr std::string_view kRareWords[] = {
    "low sodium", "low-sodium", "reduced sodium", "low calorie", "dietetic", "special dietary", "unenriched",
    "home preserved", "ascorbic acid", "single brand", "dry mix", "dehydrated", "(n x", "sweetened with",
    "with added", "without added", "vacuum pack", "extra heavy", "extra light", "low salt", "no salt added",
    "fortified", "with calcium", "without calcium", "aspartame", "saccharin", "sucralose", "sorbitol",
    "heated", "unheated", "frozen",
};

// Everyday foods that every group must offer, by their USDA long
// description: they come first in their subgroups, before any other food.
constexpr std::string_view kStaples[] = {
    // Bakery and Grains
    "Bread, white, commercially prepared (includes soft bread crumbs)",
    "Bread, whole-wheat, commercially prepared",
    "Bagels, plain, enriched, with calcium propionate (includes onion, poppy, sesame)",
    "Spaghetti, cooked, enriched, without added salt",
    "Rice, white, long-grain, regular, cooked",
    "Rice, brown, long-grain, cooked",
    "Cereals, oats, regular and quick and instant, unenriched, cooked with water (includes boiling and "
    "microwaving), without salt",
    "Pancakes, plain, prepared from recipe",
    "Bread, whole-wheat, commercially prepared, toasted",
    "Bread, white, commercially prepared, toasted",
    "Crackers, matzo, plain",
    "Cereals ready-to-eat, corn flakes, plain, single brand",
    // Beverages
    "Coffee, brewed from grounds, prepared with tap water",
    "Tea, brewed, prepared with tap water",
    "Carbonated beverage, cola, contains caffeine",
    "Alcoholic beverage, beer, regular, all",
    "Alcoholic beverage, wine, table, red",
    "Water, tap, drinking",
    // Condiments
    "Salad dressing, mayonnaise type, regular, with salt",
    "Salad dressing, italian dressing, commercial, regular",
    "Mustard, prepared, yellow",
    // Dairy and Eggs
    "Milk, whole, 3.25% milkfat",
    "Milk, reduced fat, fluid, 2% milkfat, with added vitamin A",
    "Milk, lowfat, fluid, 1% milkfat, with added vitamin A",
    "Milk, nonfat, fluid, with added vitamin A (fat free or skim)",
    "Cheese, cheddar",
    "Cheese, mozzarella, whole milk",
    "Cheese, parmesan, grated",
    "Cheese, cottage, creamed, large or small curd",
    "Cheese, cream",
    "Cheese, swiss",
    "Cheese, feta",
    "Cheese, edam",
    "Yogurt, plain, low fat, 12 grams protein per 8 ounce",
    "Egg, whole, raw, fresh",
    "Egg, whole, cooked, hard-boiled",
    "Egg, whole, cooked, scrambled",
    "Egg, whole, cooked, fried",
    "Butter, salted",
    "Cream, sour, cultured",
    "Cream, fluid, half and half",
    // Desserts and Sweets
    "Sugars, granulated",
    "Honey",
    "Ice creams, vanilla",
    "Cookies, chocolate chip, commercially prepared, regular, higher fat, enriched",
    "Jams and preserves",
    "Doughnuts, yeast-leavened, glazed, enriched (includes honey buns)",
    // Fast Foods
    "Fast foods, hamburger; single, regular patty; with condiments",
    "Fast foods, cheeseburger; single, regular patty, with condiments",
    "Fast foods, potato, french fried in vegetable oil",
    "Pizza, cheese topping, regular crust, frozen, cooked",
    "Fast foods, chicken tenders",
    // Fats and Oils
    "Oil, olive, salad or cooking",
    "Margarine, regular, unspecified oils, with salt added",
    // Fruits
    "Bananas, raw",
    "Apples, raw, with skin",
    "Oranges, raw, all commercial varieties",
    "Orange juice, raw",
    "Grapes, red or green (European type, such as Thompson seedless), raw",
    "Strawberries, raw",
    "Avocados, raw, all commercial varieties",
    // Meals, Entrees and Sidedishes
    "Macaroni and Cheese, canned entree",
    "Spaghetti with meat sauce, frozen entree",
    // Meats
    "Pork, cured, bacon, cooked, broiled, pan-fried or roasted",
    "Pork, cured, ham, whole, separable lean and fat, roasted",
    "Beef, ground, 80% lean meat / 20% fat, patty, cooked, broiled",
    "Beef, ground, 85% lean meat / 15% fat, patty, cooked, pan-broiled",
    "Beef, top sirloin, separable lean and fat, trimmed to 1/8\" fat, all grades, cooked, broiled",
    // Nuts, Seeds, Legumes, Beans
    "Peanut butter, smooth style, with salt",
    "Nuts, almonds",
    "Nuts, walnuts, english",
    "Beans, kidney, red, mature seeds, cooked, boiled, without salt",
    "Beans, black, mature seeds, cooked, boiled, without salt",
    "Lentils, mature seeds, cooked, boiled, without salt",
    // Poultry
    "Chicken, broilers or fryers, breast, meat only, cooked, roasted",
    "Chicken, broilers or fryers, thigh, meat only, cooked, roasted",
    "Chicken, broilers or fryers, drumstick, meat and skin, cooked, roasted",
    "Chicken, broilers or fryers, wing, meat and skin, cooked, fried, batter",
    "Turkey, all classes, light meat, cooked, roasted",
    // Seafood
    "Fish, salmon, Atlantic, farmed, cooked, dry heat",
    "Fish, tuna, light, canned in water, drained solids",
    "Crustaceans, shrimp, mixed species, cooked, moist heat",
    "Fish, cod, Atlantic, cooked, dry heat",
    // Snacks
    "Snacks, potato chips, plain, salted",
    "Snacks, popcorn, air-popped",
    "Snacks, pretzels, hard, plain, salted",
    // Soups
    "Soup, chicken noodle, canned, prepared with equal volume water",
    "Soup, tomato, canned, prepared with equal volume water, commercial",
    "Soup, vegetable beef, canned, prepared with equal volume water",
    // Vegetables
    "Potatoes, baked, flesh, without salt",
    "Potato, baked, flesh and skin, without salt",
    "Squash, winter, all varieties, cooked, baked, without salt",
    "Pickles, cucumber, sour",
    "Potatoes, mashed, home-prepared, whole milk and butter added",
    "Potatoes, french fried, all types, salt added in processing, frozen, home-prepared, oven heated",
    "Broccoli, raw",
    "Broccoli, cooked, boiled, drained, without salt",
    "Carrots, raw",
    "Lettuce, iceberg (includes crisphead types), raw",
    "Lettuce, cos or romaine, raw",
    "Tomatoes, red, ripe, raw, year round average",
    "Onions, raw",
    "Spinach, raw",
    "Corn, sweet, yellow, cooked, boiled, drained, without salt",
    "Peas, green, frozen, cooked, boiled, drained, without salt",
    "Beans, snap, green, cooked, boiled, drained, without salt",
    "Cucumber, with peel, raw",
    "Catsup",
};

bool IsStaple(const FoodDescription& food)
{
    return std::find(std::begin(kStaples), std::end(kStaples), food.longDesc) != std::end(kStaples);
}

// Foods the national dietary survey does not use come after all that it uses.
constexpr int kNotInSurvey = 1000;
constexpr int kPerMissingMeasure = 10;

// ---- what is left out ------------------------------------------------------

// Institutional, industrial and laboratory foods, regional foods of small
// communities, and animal parts hardly anyone buys.
constexpr std::string_view kExcludedWords[] = {
    "infant formula", "commodity",     "school lunch",  "child nutrition", "industrial",   "alaska native",
    "native american", "northern plains", "apache",     "navajo",          "hopi",         "shoshone",
    "inupiat",        "separable fat",  "mechanically", "lungs",           "spleen",       "pancreas",
    "thymus",         "brain",  "ensure plus",          "analyzed prior", "meal supplement", "not reconstituted", "unprepared",
};

// A brand name is written in capitals: "KRAFT", "McDONALD'S". The grade names
// of beef ("USDA choice") are not brands.
bool HasBrandName(std::string_view longDesc)
{
    std::string text(longDesc);
    for (std::string_view grade : {"USDA choice", "USDA select", "USDA prime"}) {
        for (auto at = text.find(grade); at != std::string::npos; at = text.find(grade))
            text.erase(at, 4);
    }
    int run = 0;
    for (char c : text) {
        run = (c >= 'A' && c <= 'Z') ? run + 1 : 0;
        if (run >= 3)
            return true;
    }
    return false;
}

bool HasExcludedWord(std::string_view longDesc)
{
    const std::string lower = Lower(longDesc);
    for (std::string_view word : kExcludedWords)
        if (lower.find(word) != std::string::npos)
            return true;
    return false;
}

// ---- meats: raw cuts, grades and trim levels -------------------------------

// Beef, pork, lamb, veal, game and poultry are eaten cooked: their raw
// entries are left out. Fish and shellfish keep a raw entry only when USDA
// lists no cooked one of the same food.
bool IsAlwaysCooked(std::string_view code) { return code == "0500" || code == "1000" || code == "1300" || code == "1700"; }

bool IsRawPart(std::string_view part) { return EqualsNoCase(part, "raw"); }

// Grades and trim levels are merged: one cut keeps one entry, the one with
// the lowest rank (all grades before choice, select and prime; 1/8" trim
// before 0" and 1/4").
struct PartRank {
    std::string_view part;
    int rank;
};
constexpr PartRank kGradeParts[] = {
    {"all grades", 0}, {"choice", 1}, {"USDA choice", 1}, {"select", 2}, {"USDA select", 2}, {"prime", 3},
    {"USDA prime", 3},
};
constexpr PartRank kTrimParts[] = {
    {"trimmed to 1/8\" fat", 0}, {"trimmed to 0\" fat", 1}, {"trimmed to 1/4\" fat", 2}, {"trimmed to 1/2\" fat", 3},
};

// ---- shorter names -----------------------------------------------------------

struct Rewording {
    std::string_view from;
    std::string_view to;
};

// Always applied: shorter words for the same thing.
constexpr Rewording kRewordings[] = {
    {"separable lean and fat", "lean and fat"},
    {"separable lean only", "lean only"},
    {"variety meats and by-products", "variety meats"},
    {"prepared-from-recipe", "prepared from recipe"},
    {"boiled. drained", "boiled, drained"},
    {" (includes boiling and microwaving)", ""},
    {", single brand", ""},
};

// Applied one after another, only while a description is longer than 75
// characters.
constexpr Rewording kShortenings[] = {
    {", cooked, ", ", "},  // "cooked, braised" -> "braised"
    {"prepared from recipe", "from recipe"},
    {"commercially prepared", "commercial"},
    {"broilers or fryers", "broiler"},
    {"meat and skin and giblets and neck", "meat, skin, giblets, neck"},
    {", boiled, drained", ", boiled"},
    {"without salt", "no salt"},
    {"mature seeds", "seeds"},
    {"ready-to-serve", "ready to serve"},
    {"ready-to-eat", "ready to eat"},
    {"with added ", "with "},
    {"enriched", "enr."},
    {"unenriched", "unenr."},
    {"including", "incl."},
    {"salt added in processing", "salted"},
};

// ---- candidates ------------------------------------------------------------

struct Candidate {
    const FoodDescription* food = nullptr;
    std::string_view group;
    std::vector<std::string> parts;
    int rank = 0;
    std::string_view trim;  // the trim level merged away, "1/8\" fat"
    int shortenings = 0;    // how many of kShortenings the description took
    std::string subgroup;
    std::string description;
};

std::string_view RouteGroup(const FoodDescription& food, const std::vector<std::string>& parts)
{
    std::string_view group;
    for (const auto& route : kRoutes)
        if (route.code == food.groupCode)
            group = route.group;
    if (group.empty() || parts.empty())
        return {};
    const std::string first = Lower(parts[0]);
    if (group == kBakery && food.groupCode == "1800") {
        for (std::string_view bake : kDessertBakes)
            if (first == bake || (bake == "cheesecake" && first.rfind(bake, 0) == 0))
                return kDesserts;
    }
    if (group == kFatsOils) {
        for (std::string_view dressing : kDressings)
            if (first.rfind(dressing, 0) == 0)
                return kCondiments;
    }
    if (group == kSoups) {
        for (std::string_view word : kSoupWords)
            if (first.find(word) != std::string::npos)
                return kSoups;
        return kCondiments;
    }
    return group;
}

bool IsAlcoholic(const FoodDescription& food)
{
    return food.groupCode == "1400" && Lower(food.longDesc).rfind("alcoholic beverage", 0) == 0;
}

void ReplaceAll(std::string& text, std::string_view from, std::string_view to)
{
    for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
}

std::string WithoutBlanks(std::string_view text)
{
    std::string out;
    for (char c : text)
        if (c != ' ')
            out += c;
    return out;
}

// Removes the parts listed in table and returns the rank of the one found
// (0 when none).
int TakeRankedParts(std::vector<std::string>& parts, const PartRank* table, std::size_t count)
{
    int rank = 0;
    for (auto it = parts.begin(); it != parts.end();) {
        bool removed = false;
        for (std::size_t i = 0; i < count; ++i) {
            if (EqualsNoCase(WithoutBlanks(*it), WithoutBlanks(table[i].part))) {
                rank = std::max(rank, table[i].rank);
                it = parts.erase(it);
                removed = true;
                break;
            }
        }
        if (!removed)
            ++it;
    }
    return rank;
}

std::string SubgroupName(std::string text)
{
    // Only the first letter upper case: "Turkey Pot Pie" and "Turkey pot pie"
    // are one subgroup.
    text = SentenceCase(text);
    for (const auto& [from, to] : kSubgroupAliases)
        if (text == from)
            text = std::string(to);
    return text;
}

// Fills subgroup and description from the parts; false when a name does not
// fit in 75 characters. The first `shortenings` shortenings are made
// whatever the length, so that siblings read alike.
bool NameCandidate(Candidate& c, int shortenings)
{
    std::vector<std::string> parts = c.parts;
    // "Bacon, meatless" is meatless bacon, not bacon.
    bool meatless = false;
    for (auto it = parts.begin() + 1; parts.size() > 1 && it != parts.end();) {
        if (EqualsNoCase(*it, "meatless")) {
            it = parts.erase(it);
            meatless = true;
        } else {
            ++it;
        }
    }
    for (const auto& gp : kGroupPrefixes)
        if (gp.group == c.group && parts.size() > 1 && EqualsNoCase(parts[0], gp.prefix))
            parts.erase(parts.begin());

    for (std::string_view family : kFamilyParts)
        if (parts.size() > 1 && EqualsNoCase(parts[0], family))
            parts.erase(parts.begin());
    // "Carambola, (starfruit), raw" -> "Carambola (starfruit)" / "Raw"
    while (parts.size() > 1 && parts[1].front() == '(') {
        parts[0] += " " + parts[1];
        parts.erase(parts.begin() + 1);
    }

    std::string subgroup = parts[0];
    std::string description = JoinParts(parts, 1);
    // "cheeseburger; double, large patty" -> "Cheeseburger" / "Double, ..."
    if (auto semi = subgroup.find(';'); semi != std::string::npos) {
        std::string rest = NormalizeSpacing(subgroup.substr(semi + 1));
        subgroup = NormalizeSpacing(subgroup.substr(0, semi));
        description = description.empty() ? rest : rest + ", " + description;
    }
    if (meatless)
        subgroup = "Meatless " + Lower(subgroup);
    if (description.empty())
        description = subgroup;  // a food of one word names itself

    c.shortenings = 0;
    for (const auto& s : kShortenings) {
        if (c.shortenings >= shortenings && description.size() <= static_cast<std::size_t>(kMaxTextField))
            break;
        ReplaceAll(description, s.from, s.to);
        ++c.shortenings;
    }
    c.subgroup = SubgroupName(NormalizeSpacing(subgroup));
    c.description = SentenceCase(NormalizeSpacing(description));
    for (const auto& r : kSubgroupRenames) {
        if (r.group == c.group && c.subgroup == r.from) {
            if (c.description == c.subgroup)
                c.description = std::string(r.to);
            c.subgroup = std::string(r.to);
        }
    }
    return !c.subgroup.empty() && c.subgroup.size() <= static_cast<std::size_t>(kMaxTextField) &&
           c.description.size() <= static_cast<std::size_t>(kMaxTextField);
}

// A cooked "X, with salt" is left out when "X, without salt" is there: the
// salt is the cook's, and the unsalted food is the one to pick.
bool HasUnsaltedTwin(const std::vector<std::string>& parts, const std::set<std::string>& names)
{
    const std::string name = Lower(JoinParts(parts));
    if (name.find("cooked") == std::string::npos && name.find("boiled") == std::string::npos)
        return false;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        std::string other;
        if (EqualsNoCase(parts[i], "with salt"))
            other = "without salt";
        else if (EqualsNoCase(parts[i], "with added salt"))
            other = "without added salt";
        else
            continue;
        std::vector<std::string> twin = parts;
        twin[i] = other;
        if (names.count(Lower(JoinParts(twin))))
            return true;
    }
    return false;
}

// A raw food with a cooked entry of the same food: a name that starts with
// the parts before "raw" and goes on with something else.
bool HasCookedTwin(const std::vector<std::string>& parts, const std::set<std::string>& names)
{
    auto raw = std::find_if(parts.begin(), parts.end(), [](const std::string& p) { return IsRawPart(p); });
    if (raw == parts.end() || raw == parts.begin())
        return false;
    const std::string stem = Lower(JoinParts(std::vector<std::string>(parts.begin(), raw))) + ", ";
    for (auto it = names.lower_bound(stem); it != names.end() && it->rfind(stem, 0) == 0; ++it)
        if (it->find("raw") == std::string::npos)
            return true;
    return false;
}

}  // namespace

std::int32_t ValuePerMeasure(std::int64_t per100gHundredths, std::int64_t gramsHundredths)
{
    // value = p/100 x g/100 / 100 = p x g / 10^6
    const std::int64_t num = per100gHundredths * gramsHundredths;
    const std::int64_t den = 1'000'000;
    std::int64_t q = num / den;
    const std::int64_t r = num % den;
    if (2 * r > den || (2 * r == den && (q % 2) != 0))
        ++q;
    if (q < std::numeric_limits<std::int32_t>::min() || q > std::numeric_limits<std::int32_t>::max())
        throw std::overflow_error("value per measure out of 32-bit range");
    return static_cast<std::int32_t>(q);
}

std::int64_t AlcoholNumeratorPer100g(const usda::Nutrients& n)
{
    const std::int64_t rest = n.energyKcal - 4 * n.protein - 4 * n.carbs - 9 * n.fat;
    return std::max<std::int64_t>(rest, 0);
}

NutrientValues MeasureValues(const usda::Nutrients& n, std::int64_t gramsHundredths, bool alcoholic)
{
    NutrientValues v{};
    v[kProtein] = ValuePerMeasure(n.protein, gramsHundredths);
    v[kCarbs] = ValuePerMeasure(n.carbs, gramsHundredths);
    v[kFats] = ValuePerMeasure(n.fat, gramsHundredths);
    v[kCholesterol] = ValuePerMeasure(n.cholesterol, gramsHundredths);
    v[kFiber] = ValuePerMeasure(n.fiber, gramsHundredths);
    v[kCalcium] = ValuePerMeasure(n.calcium, gramsHundredths);
    v[kSodium] = ValuePerMeasure(n.sodium, gramsHundredths);
    if (alcoholic) {
        // numerator / 7 hundredths per 100 g: round (num x g) / (7 x 10^6)
        const std::int64_t num = AlcoholNumeratorPer100g(n) * gramsHundredths;
        const std::int64_t den = 7'000'000;
        std::int64_t q = num / den;
        const std::int64_t r = num % den;
        if (2 * r > den || (2 * r == den && (q % 2) != 0))
            ++q;
        v[kAlcohol] = static_cast<std::int32_t>(q);
    }
    v[kCalories] = ComputeCalories(v[kProtein], v[kCarbs], v[kFats], v[kAlcohol]);
    return v;
}

bool CaloriesDistorted(const usda::Nutrients& n, std::int64_t gramsHundredths, bool alcoholic)
{
    // kcal x 10^6, exactly: per-100 g hundredths x gram hundredths.
    const std::int64_t perGram = 4 * (n.protein + n.carbs) + 9 * n.fat + (alcoholic ? AlcoholNumeratorPer100g(n) : 0);
    const std::int64_t exact = perGram * gramsHundredths;
    // Water, coffee, tea and diet drinks have almost none whatever the cup.
    if (perGram < kAlmostNoKcalPer100g * 100 || exact < kDistortionFloorKcal * 1'000'000LL)
        return false;
    const std::int64_t shown = static_cast<std::int64_t>(MeasureValues(n, gramsHundredths, alcoholic)[kCalories]) * 1'000'000;
    return 4 * (shown > exact ? shown - exact : exact - shown) > exact;
}

bool RecordLess(const FoodRecord& a, const FoodRecord& b)
{
    return std::tie(a.group, a.subgroup, a.description, a.measure) <
           std::tie(b.group, b.subgroup, b.description, b.measure);
}

Selection SelectFoods(const usda::Source& source, const std::set<std::string>& earlierFoods)
{
    Selection selection;
    selection.foodsRead = static_cast<int>(source.foods.size());

    // 1. Route every food to a group and leave out brands, institutional
    //    and regional foods.
    std::vector<Candidate> candidates;
    for (const auto& food : source.foods) {
        if (!food.manufacturer.empty() || HasBrandName(food.longDesc) || HasExcludedWord(food.longDesc))
            continue;
        Candidate c;
        c.food = &food;
        std::string text = NormalizeSpacing(food.longDesc);
        for (const auto& [from, to] : kLongDescRewrites)
            if (text == from)
                text = std::string(to);
        for (const auto& r : kRewordings)
            ReplaceAll(text, r.from, r.to);
        c.parts = SplitParts(text);
        c.group = RouteGroup(food, c.parts);
        if (c.group.empty())
            continue;
        candidates.push_back(std::move(c));
    }

    // 2. Raw meats and salted twins.
    std::map<std::string, std::set<std::string>> namesByCode;
    for (const auto& c : candidates)
        namesByCode[c.food->groupCode].insert(Lower(JoinParts(c.parts)));
    std::vector<Candidate> cooked;
    for (auto& c : candidates) {
        const auto& names = namesByCode[c.food->groupCode];
        const bool raw = std::any_of(c.parts.begin(), c.parts.end(), [](const auto& p) { return IsRawPart(p); });
        if (raw && IsAlwaysCooked(c.food->groupCode))
            continue;
        if (raw && c.food->groupCode == "1500" && HasCookedTwin(c.parts, names))
            continue;
        if (HasUnsaltedTwin(c.parts, names))
            continue;
        cooked.push_back(std::move(c));
    }

    // 3. Grades and trims merged, names made.
    std::vector<Candidate> named;
    for (auto& c : cooked) {
        if (c.group == kMeats || c.group == kPoultry) {
            const int grade = TakeRankedParts(c.parts, kGradeParts, std::size(kGradeParts));
            for (const auto& t : kTrimParts)
                for (const auto& part : c.parts)
                    if (EqualsNoCase(WithoutBlanks(part), WithoutBlanks(t.part)))
                        c.trim = t.part.substr(std::string_view("trimmed to ").size());
            const int trim = TakeRankedParts(c.parts, kTrimParts, std::size(kTrimParts));
            c.rank = grade * 10 + trim;
        }
        if (NameCandidate(c, 0))
            named.push_back(std::move(c));
    }
    // Siblings are shortened alike: when one food of a subgroup had to drop
    // its "cooked" ("cooked, braised" -> "braised"), all of them do, so that
    // "lean and fat, braised" and "lean only, braised" stand side by side.
    {
        std::map<std::pair<std::string_view, std::string>, int> most;
        for (const auto& c : named)
            most[{c.group, c.subgroup}] = std::max(most[{c.group, c.subgroup}], std::min(c.shortenings, 1));
        std::vector<Candidate> renamed;
        for (auto& c : named) {
            const int steps = most[{c.group, c.subgroup}];
            if (NameCandidate(c, steps))
                renamed.push_back(std::move(c));
        }
        named = std::move(renamed);
    }
    // One spelling per subgroup within a group: "Muffin" and "Muffins",
    // "Pancakes" and "Pancakes plain" become one. What only the merged name
    // said moves to the front of the description: "Plain, dry mix".
    {
        std::map<std::string_view, std::map<std::string, int>> perGroup;
        for (const auto& c : named)
            ++perGroup[c.group][c.subgroup];
        for (const auto& [group, subgroups] : perGroup) {
            const auto merged = MergedSubgroups(subgroups);
            for (auto& c : named) {
                if (c.group != group)
                    continue;
                const auto to = merged.find(c.subgroup);
                if (to == merged.end())
                    continue;
                std::string said;
                const std::string from = Lower(c.subgroup);
                if (from.size() > 6 && from.compare(from.size() - 6, 6, " plain") == 0)
                    said = "Plain";
                else if (const auto paren = c.subgroup.find(" ("); paren != std::string::npos &&
                         c.subgroup.find_first_of("0123456789", paren) != std::string::npos)
                    said = CapitalizeFirst(c.subgroup.substr(paren + 2, c.subgroup.size() - paren - 3));
                if (!said.empty() && c.description != c.subgroup) {
                    std::string rest = c.description;
                    if (rest.size() > 1 && std::isupper(static_cast<unsigned char>(rest[0])) &&
                        std::islower(static_cast<unsigned char>(rest[1])))
                        rest[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(rest[0])));
                    c.description = said + ", " + rest;
                } else if (!said.empty()) {
                    c.description = said;
                }
                c.subgroup = to->second;
            }
        }
        named.erase(std::remove_if(named.begin(), named.end(),
                                   [](const Candidate& c) {
                                       return c.description.size() > static_cast<std::size_t>(kMaxTextField);
                                   }),
                    named.end());
    }

    // 4. One food per name: the lowest rank, then the lowest food id.
    std::stable_sort(named.begin(), named.end(), [](const Candidate& a, const Candidate& b) {
        return std::tie(a.group, a.subgroup, a.description, a.rank, a.food->ndbNo) <
               std::tie(b.group, b.subgroup, b.description, b.rank, b.food->ndbNo);
    });
    named.erase(std::unique(named.begin(), named.end(),
                            [](const Candidate& a, const Candidate& b) {
                                return a.group == b.group && a.subgroup == b.subgroup &&
                                       a.description == b.description;
                            }),
                named.end());
    // A lean-and-fat cut says the trim its values are for.
    for (auto& c : named) {
        if (c.trim.empty())
            continue;
        std::string named = c.description;
        const std::string_view leanAndFat = "lean and fat";
        if (const auto at = Lower(named).find(leanAndFat); at != std::string::npos) {
            named.insert(at + leanAndFat.size(), ", " + std::string(c.trim) + " trim");
            if (named.size() <= static_cast<std::size_t>(kMaxTextField))
                c.description = named;
        }
    }

    // 5. Up to three household measures per food, everyday ones first; a
    //    food without any is left out.
    struct Entry {
        const Candidate* candidate;
        std::vector<FoodRecord> records;
        std::vector<RecordOrigin> origins;
        int commonness;  // lower is more common
    };
    std::map<std::string_view, std::map<std::string, std::vector<Entry>>> byGroup;  // group -> subgroup -> foods
    for (const auto& c : named) {
        const auto measures = source.measures.find(c.food->ndbNo);
        if (measures == source.measures.end())
            continue;
        const usda::Nutrients& n = source.nutrients.at(c.food->ndbNo);
        const bool alcoholic = IsAlcoholic(*c.food);
        struct MeasureChoice {
            std::string first;    // the measure text
            std::int64_t second;  // grams
            int seq;
        };
        // The household measures as USDA lists them; one whose calories the
        // whole-gram values distort is taken 2, 5 or 10 times instead, and
        // only where the food has too few others, so that a larger measure
        // of the food wins when there is one. A food with none of either
        // keeps its spoonfuls: it has next to nothing in one (capers, agar).
        std::vector<MeasureChoice> texts, scaled, spoonfuls;
        auto add = [&](std::vector<MeasureChoice>& to, std::string text, std::int64_t grams, int seq) {
            for (const auto* list : {&texts, &scaled, &spoonfuls})
                if (std::any_of(list->begin(), list->end(), [&](const auto& t) { return t.first == text; }))
                    return;
            to.push_back(MeasureChoice{std::move(text), grams, seq});
        };
        for (const auto& m : measures->second) {
            if (m.grams <= 0)
                continue;
            if (!CaloriesDistorted(n, m.grams, alcoholic)) {
                if (auto text = MeasureText(m.amount, m.unit, m.grams))
                    add(texts, std::move(*text), m.grams, m.seq);
                continue;
            }
            // A spoon or a cup is doubled at most: "2 tbsp", never "10 tbsp".
            const auto natural = MeasureText(m.amount, m.unit, m.grams);
            const std::string unit = natural ? Lower(natural->substr(natural->find(' ') + 1)) : std::string();
            const bool volume = unit.rfind("cup", 0) == 0 || unit.rfind("tbsp", 0) == 0 || unit.rfind("tsp", 0) == 0 ||
                                unit.rfind("fl oz", 0) == 0;
            bool taken = false;
            for (int factor : kScaleFactors) {
                if (volume && (factor > 2 || m.amount != 1000))
                    break;
                if (CaloriesDistorted(n, m.grams * factor, alcoholic))
                    continue;
                if (auto text = ScaledMeasureText(m.amount, m.unit, m.grams, factor)) {
                    add(scaled, std::move(*text), m.grams * factor, m.seq);
                    taken = true;
                }
                break;
            }
            if (!taken && natural && volume)
                add(spoonfuls, *natural, m.grams, m.seq);
        }
        std::vector<MeasureChoice> chosen;
        for (const auto* list : {&texts, &scaled, &spoonfuls}) {
            if (list == &spoonfuls && !chosen.empty())
                break;
            std::vector<std::string> candidatesText;
            for (const auto& t : *list)
                candidatesText.push_back(t.first);
            for (std::size_t i : ChooseMeasures(candidatesText, kMeasuresPerFood - chosen.size()))
                chosen.push_back((*list)[i]);
        }
        texts = std::move(chosen);
        if (texts.empty())
            continue;
        // Survey foods first; then foods with more household measures (USDA
        // describes the foods people eat often in more ways); then fewer
        // parts in the name and fewer rare words.
        const int householdMeasures = static_cast<int>(std::min<std::size_t>(measures->second.size(), 10));
        const bool staple = IsStaple(*c.food);
        const bool earlier = earlierFoods.count(c.food->ndbNo) > 0;
        Entry entry{&c, {}, {},
                    staple ? -2 : earlier ? -1
                           : (c.food->survey ? 0 : kNotInSurvey) + (10 - householdMeasures) * kPerMissingMeasure +
                                 static_cast<int>(c.parts.size())};
        const std::string lower = Lower(c.food->longDesc);
        for (std::string_view word : kRareWords)
            if (!staple && !earlier && lower.find(word) != std::string::npos)
                entry.commonness += 2;
        for (const auto& [measure, grams, seq] : texts) {
            entry.records.push_back(
                FoodRecord{std::string(c.group), c.subgroup, c.description, measure, MeasureValues(n, grams, alcoholic)});
            entry.origins.push_back(RecordOrigin{c.food->ndbNo, seq, grams});
        }
        byGroup[c.group][c.subgroup].push_back(std::move(entry));
    }

    // 6. Each group's places go to its subgroups in turn: the next food is
    //    always the most common one left of the subgroup whose share so far,
    //    (taken + 1) / sqrt(foods in it), is the smallest. A big subgroup
    //    (Beef, Potatoes) thus gets more places than a small one, but every
    //    subgroup gets its most common food before any gets a tenth. Survey
    //    foods of all subgroups are placed first, the others only in the
    //    places still left.
    // A food with a value USDA leaves empty is kept only when its subgroup
    //    has no food with all of them: the empty value reads as 0.
    for (auto& [group, subgroups] : byGroup) {
        for (auto& [subgroup, foods] : subgroups) {
            auto incomplete = [&](const Entry& e) {
                return !source.nutrients.at(e.candidate->food->ndbNo).complete && !IsStaple(*e.candidate->food);
            };
            if (std::any_of(foods.begin(), foods.end(), [&](const Entry& e) { return !incomplete(e); }))
                foods.erase(std::remove_if(foods.begin(), foods.end(), incomplete), foods.end());
        }
    }

    std::set<std::string> keptFoods;
    for (const auto& budget : kBudgets) {
        auto group = byGroup.find(budget.group);
        if (group == byGroup.end())
            continue;
        struct Queue {
            std::vector<Entry>* foods;
            std::size_t firstFoods = 0;   // staples and the earlier release's foods
            std::size_t surveyFoods = 0;  // those and the survey's foods
            std::size_t next = 0;
            std::int64_t taken = 0;
        };
        std::vector<Queue> queues;
        for (auto& [subgroup, foods] : group->second) {
            std::stable_sort(foods.begin(), foods.end(), [](const Entry& a, const Entry& b) {
                return std::tie(a.commonness, a.candidate->food->ndbNo) <
                       std::tie(b.commonness, b.candidate->food->ndbNo);
            });
            const auto first = std::count_if(foods.begin(), foods.end(), [](const Entry& e) { return e.commonness < 0; });
            const auto survey = std::count_if(foods.begin(), foods.end(), [](const Entry& e) {
                return e.candidate->food->survey || e.commonness < 0;
            });
            queues.push_back(Queue{&foods, static_cast<std::size_t>(first), static_cast<std::size_t>(survey)});
        }
        int left = budget.records;
        // Staples and the earlier release's foods first, then the survey's,
        // then the rest.
        for (const int tier : {0, 1, 2}) {
            while (left > 0) {
                Queue* best = nullptr;
                for (auto& q : queues) {
                    if (q.next >= (tier == 0 ? q.firstFoods : tier == 1 ? q.surveyFoods : q.foods->size()))
                        continue;
                    // (q.taken + 1)^2 / size < (best.taken + 1)^2 / best.size
                    const auto size = static_cast<std::int64_t>(q.foods->size());
                    if (!best || (q.taken + 1) * (q.taken + 1) * static_cast<std::int64_t>(best->foods->size()) <
                                     (best->taken + 1) * (best->taken + 1) * size)
                        best = &q;
                }
                if (!best)
                    break;
                const Entry& entry = (*best->foods)[best->next++];
                if (static_cast<int>(entry.records.size()) > left)
                    continue;
                left -= static_cast<int>(entry.records.size());
                ++best->taken;
                ++selection.foodsKept;
                keptFoods.insert(entry.candidate->food->longDesc);
                selection.records.insert(selection.records.end(), entry.records.begin(), entry.records.end());
                selection.origins.insert(selection.origins.end(), entry.origins.begin(), entry.origins.end());
            }
        }
        for (const auto& [subgroup, foods] : group->second)
            for (const Entry& e : foods)
                if (e.candidate->food->survey && !keptFoods.count(e.candidate->food->longDesc))
                    ++selection.surveyFoodsLeftForRoom[std::string(budget.group)];
    }

    // Every staple must have made it: a missing one means the USDA text or
    //    a rule above changed, and the database would lack an everyday food.
    std::set<std::string_view> present;
    for (const auto& food : source.foods)
        present.insert(food.longDesc);
    for (std::string_view staple : kStaples)
        if (present.count(staple) && !keptFoods.count(std::string(staple)))
            throw std::runtime_error("staple food not kept: " + std::string(staple));

    // 7. The Favorites group starts with its one empty entry.
    selection.records.push_back(FoodRecord{std::string(kFavoritesGroup), kFavoritesSubgroup, "", "", {}});
    selection.origins.push_back(RecordOrigin{});

    std::vector<std::size_t> order(selection.records.size());
    for (std::size_t i = 0; i < order.size(); ++i)
        order[i] = i;
    std::sort(order.begin(), order.end(),
              [&](std::size_t a, std::size_t b) { return RecordLess(selection.records[a], selection.records[b]); });
    std::vector<FoodRecord> records;
    std::vector<RecordOrigin> origins;
    for (std::size_t i : order) {
        records.push_back(std::move(selection.records[i]));
        origins.push_back(std::move(selection.origins[i]));
    }
    selection.records = std::move(records);
    selection.origins = std::move(origins);
    return selection;
}

void FillTable(FoodTable& table, const std::vector<FoodRecord>& records)
{
    table.Clear();
    SetDataVersion(table, kDataVersionLine);
    for (const auto& record : records)
        table.Append(record);
    table.DatabaseDirty = true;
}

MadeDatabase MakeDatabase(const std::string& sourceFolder)
{
    const usda::Source source = usda::ReadSource(JoinPath(sourceFolder, "usda-sr21"));
    std::vector<EarlierRecord> earlier;
    const std::string earlierPath = JoinPath(sourceFolder, "earlier-names.txt");
    if (std::ifstream(earlierPath).good())
        earlier = ParseEarlierNames(ReadWholeFile(earlierPath, std::size_t(1) << 30));
    std::set<std::string> earlierFoods;
    for (const auto& e : earlier)
        earlierFoods.insert(e.origin.ndbNo);
    MadeDatabase made;
    made.selection = SelectFoods(source, earlierFoods);
    FoodTable table;
    FillTable(table, made.selection.records);
    made.dataFile = SaveDatabaseToBytes(table);
    made.renamesSource = RenamesSource(Renames(made.selection, earlier));
    return made;
}

std::vector<EarlierRecord> ParseEarlierNames(std::string_view text)
{
    std::vector<EarlierRecord> records;
    int lineNo = 0;
    for (const std::string& line : SplitLines(text)) {
        ++lineNo;
        if (line.empty())
            continue;
        const std::vector<std::string> f = usda::SplitFields(line);
        if (f.size() != 7)
            throw usda::SourceError("earlier names line " + std::to_string(lineNo) + ": " + std::to_string(f.size()) +
                                    " fields, expected 7");
        EarlierRecord r;
        try {
            r.origin = RecordOrigin{f[0], static_cast<int>(usda::ParseScaled(f[1], 0)), usda::ParseScaled(f[2], 0)};
        } catch (const usda::SourceError& e) {
            throw usda::SourceError("earlier names line " + std::to_string(lineNo) + ": " + e.what());
        }
        r.names = FoodRecord{f[3], f[4], f[5], f[6], {}};
        records.push_back(std::move(r));
    }
    return records;
}

std::vector<RenamedRecord> Renames(const Selection& selection, const std::vector<EarlierRecord>& earlier)
{
    auto key = [](const FoodRecord& r) { return std::tie(r.group, r.subgroup, r.description, r.measure); };
    std::set<std::tuple<std::string, std::string, std::string, std::string>> names;
    std::map<std::string, std::vector<std::size_t>> byFood;
    for (std::size_t i = 0; i < selection.records.size(); ++i) {
        names.insert(key(selection.records[i]));
        byFood[selection.origins[i].ndbNo].push_back(i);
    }
    std::vector<RenamedRecord> renames;
    for (const EarlierRecord& old : earlier) {
        if (names.count(key(old.names)))
            continue;
        const auto food = byFood.find(old.origin.ndbNo);
        if (food == byFood.end())
            continue;  // gone: the list says so
        // The same weight line, else the lightest measure at least as heavy
        // (a quantity then only gets smaller, and stays one the quantity box
        // takes), else the heaviest.
        std::size_t best = food->second.front();
        auto score = [&](std::size_t i) {
            const RecordOrigin& o = selection.origins[i];
            const bool heavier = o.gramsHundredths >= old.origin.gramsHundredths;
            return std::make_tuple(o.seq == old.origin.seq ? 0 : 1, heavier ? 0 : 1,
                                   heavier ? o.gramsHundredths : -o.gramsHundredths, i);
        };
        for (std::size_t i : food->second)
            if (score(i) < score(best))
                best = i;
        const FoodRecord& to = selection.records[best];
        if (to.group != old.names.group)
            continue;
        RenamedRecord rename{old.names, FoodRecord{to.group, to.subgroup, to.description, to.measure, {}},
                          old.origin.gramsHundredths, selection.origins[best].gramsHundredths};
        const std::int64_t common = std::gcd(rename.quantityNumerator, rename.quantityDenominator);
        rename.quantityNumerator /= common;
        rename.quantityDenominator /= common;
        renames.push_back(std::move(rename));
    }
    std::sort(renames.begin(), renames.end(),
              [&](const RenamedRecord& a, const RenamedRecord& b) { return key(a.from) < key(b.from); });
    return renames;
}

namespace {

std::string Literal(std::string_view text)
{
    std::string out = "\"";
    for (char c : text) {
        if (c == '"' || c == '\\')
            out += '\\';
        out += c;
    }
    return out + '"';
}

}  // namespace

std::string RenamesSource(const std::vector<RenamedRecord>& renames)
{
    std::string out =
        "// Made by platewell_makedb from data/source: the foods of the earlier\n"
        "// delivered database that this one names otherwise, by their old texts.\n"
        "// Do not edit; build the regenerate_database target.\n";
    for (const RenamedRecord& r : renames) {
        out += "{" + Literal(r.from.group) + ", " + Literal(r.from.subgroup) + ", " + Literal(r.from.description) +
               ", " + Literal(r.from.measure) + ",\n " + Literal(r.to.subgroup) + ", " + Literal(r.to.description) +
               ", " + Literal(r.to.measure) + ", " + std::to_string(r.quantityNumerator) + ", " +
               std::to_string(r.quantityDenominator) + "},\n";
    }
    return out;
}

std::string NamesText(const Selection& selection)
{
    std::string out;
    for (std::size_t i = 0; i < selection.records.size(); ++i) {
        const FoodRecord& r = selection.records[i];
        const RecordOrigin& o = selection.origins[i];
        if (o.ndbNo.empty())
            continue;
        out += o.ndbNo + '^' + std::to_string(o.seq) + '^' + std::to_string(o.gramsHundredths) + '^' + r.group + '^' +
               r.subgroup + '^' + r.description + '^' + r.measure + "\r\n";
    }
    return out;
}

}  // namespace pw::dbmaker
