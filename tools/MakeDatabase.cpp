// platewell_makedb <source-folder> <output data.dat> <output renames.inc> [names.txt]
//
// Makes the delivered food database from the public-domain USDA National
// Nutrient Database for Standard Reference, Release 21 (FOOD_DES.txt,
// ABBREV.txt, WEIGHT.txt in source-folder/usda-sr21) and writes it with the
// model's own data-file writer, and the table of the foods it names otherwise
// than the earlier release (source-folder/earlier-names.txt) for the program
// to compile in. The same files always give the same bytes.
//
// Which foods are kept (tools/dbmaker/DatabaseMaker.cpp holds the tables):
//
//  1. Groups. USDA groups map onto the 17 groups: Dairy and Egg -> Dairy and
//     Eggs; Beef, Pork, Lamb/Veal/Game, Sausages and Luncheon Meats -> Meats;
//     Nut and Seed, Legumes -> Nuts, Seeds, Legumes, Beans; Baked Products,
//     Cereal Grains and Pasta, Breakfast Cereals -> Bakery and Grains, except
//     cakes, cookies, pies, brownies, doughnuts, sweet rolls and other
//     dessert bakes -> Desserts and Sweets; Sweets -> Desserts and Sweets;
//     Spices and Herbs, sauces and gravies, salad dressings and mayonnaise ->
//     Condiments; soups, chowders and broths -> Soups; Finfish and Shellfish
//     -> Seafood; other Fats and Oils -> Fats and Oils; Poultry; Fruits and
//     Fruit Juices -> Fruits; Vegetables; Beverages; Fast Foods; Meals,
//     Entrees and Sidedishes; Snacks. Baby foods and ethnic foods are left
//     out. Favorites gets one entry with an empty description, so that the
//     chooser shows the group before the user has copied anything there.
//  2. Left out: brand names (a manufacturer given, or a run of three capital
//     letters as in "KRAFT" or "McDONALD'S"); infant formula, commodity,
//     school-lunch, industrial and regional foods; unprepared and
//     not-reconstituted forms; separable fat, mechanically separated meat
//     and rarely eaten organs. A food with a value USDA leaves empty among
//     the seven kept ones is left out where its subgroup has a food with all
//     of them (the manual gives how many remain).
//  3. Beef, pork, lamb, veal, game and poultry are kept cooked only; fish
//     and shellfish keep a raw entry only where no cooked one exists. The
//     grades (all grades, choice, select, prime) and trim levels (1/8", 0",
//     1/4") of one cut are merged into one entry, preferring all grades and
//     1/8" trim; a lean-and-fat cut names its trim. A cooked food "with salt"
//     is left out where the same food "without salt" exists.
//  4. Names. The first part of the USDA long description (up to the first
//     comma) is the subgroup, the rest the description, both in sentence
//     case with proper names kept ("New Zealand", "Canadian bacon"); a food
//     of one part names itself in both. Parts that only repeat the group
//     ("Soup, ", "Fast foods, ", "Snacks, ") or name a family ("Fish, ",
//     "Nuts, ") give way to the next part, so that the subgroup is "Tomato",
//     "Salmon" or "Almonds"; "meatless" moves into the subgroup ("Meatless
//     bacon"); a few subgroups that say nothing alone are renamed
//     ("Distilled spirits"). Within a group one spelling per subgroup:
//     singular and plural, "X plain" and "X (note)" beside "X" are merged.
//     "separable lean only" reads "lean only"; a description longer than 75
//     characters is shortened by fixed rewordings, the first of them
//     ("cooked, braised" -> "braised") for all foods of its subgroup alike,
//     and a food whose name still does not fit is left out.
//  5. Measures. Up to three household measures from WEIGHT.txt, the amount
//     written as a cook writes it ("1/2 cup", "2-1/2 oz"), laboratory notes
//     and brand names removed; the measures a person reaches for first
//     (medium, fruit, slice, cup, tbsp, piece), the standard one before its
//     variants ("1 slice" before "1 slice, large"), units not yet chosen
//     before second forms of one unit, odd sizes (jumbo, melted) and
//     servings after them, bulk ones (lb, package, can, whole bird) last. A
//     serving says its weight ("1 serving (237 g)"; "serving 9 servings per
//     package" is one serving); bare weights ("45 g"), yields and notes
//     alone are dropped, and a food with no measure left is left out. A
//     measure whose whole-gram values put its calories more than a quarter
//     off the formula on the unrounded grams (2 kcal or more, in a food of
//     10 kcal per 100 g or more) is taken 2, 5 or 10 times ("2 large" olives)
//     and only where the food has too few other measures. Values per measure
//     = value per 100 g x grams / 100, rounded half to even, exactly.
//  6. Alcohol, for alcoholic beverages only: (Energ_Kcal - 4 Protein -
//     4 Carbohydrt - 9 Lipid_Tot) / 7 per 100 g, never below zero.
//  7. How many. Each group has a share of records (370 Meats, 440
//     Vegetables, ...; about 3,700 in all, so at least 300 of the 4,000
//     places stay free). Within a group, foods are taken one at a time from
//     the subgroup whose share so far, (taken + 1) / sqrt(its foods), is
//     smallest, its most common food first. Most common: a short list of
//     staple foods first (white bread, whole milk, bananas, feta, baked
//     potato with skin, ...), then the foods the earlier release delivered
//     (data/source/earlier-names.txt), then foods the national dietary
//     survey uses, then foods with more household measures, then shorter
//     names without rare words (low sodium, dietetic, dry mix, ...). Survey
//     foods of every subgroup are placed before any other food.
//  8. The records are sorted by plain byte order of group, subgroup,
//     description and measure, as the insert operation keeps them.
//  9. Renames. Every record of the earlier release whose four texts name no
//     record any more, while its USDA food is still delivered, gets a line in
//     the renames table: the record of the same weight line, else the food's
//     measure nearest in weight, with the factor a quantity is scaled by.
#include <cstdio>
#include <exception>
#include <map>

#include "core/LineFile.h"
#include "dbmaker/DatabaseMaker.h"

int main(int argc, char** argv)
{
    if (argc != 4 && argc != 5) {
        std::fprintf(stderr, "usage: %s <source-folder> <output data.dat> <output renames.inc> [names.txt]\n",
                     argc > 0 ? argv[0] : "platewell_makedb");
        return 2;
    }
    try {
        const pw::dbmaker::MadeDatabase made = pw::dbmaker::MakeDatabase(argv[1]);
        pw::WriteFileAtomic(argv[2], made.dataFile);
        pw::WriteFileAtomic(argv[3], made.renamesSource);
        if (argc == 5)
            pw::WriteFileAtomic(argv[4], pw::dbmaker::NamesText(made.selection));
        std::map<std::string, int> perGroup;
        for (const auto& record : made.selection.records)
            ++perGroup[record.group];
        for (const auto& [group, count] : perGroup) {
            const auto left = made.selection.surveyFoodsLeftForRoom.find(group);
            std::printf("%5d  %s", count, group.c_str());
            if (left != made.selection.surveyFoodsLeftForRoom.end())
                std::printf(" (%d survey foods left out for room)", left->second);
            std::printf("\n");
        }
        std::printf("%5zu  records from %d of %d foods written to %s\n", made.selection.records.size(),
                    made.selection.foodsKept, made.selection.foodsRead, argv[2]);
        return 0;
    } catch (const std::exception& e) {
        std::fprintf(stderr, "platewell_makedb: %s\n", e.what());
        return 1;
    }
}
