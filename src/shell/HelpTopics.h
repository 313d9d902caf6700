#pragma once
// The help file: one HTML page whose topics are marked with anchors named
// "context-N", N being the context number the program opens it at. The
// numbers are the contract between the program and its help file.
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace pw {

inline constexpr const char* kHelpFileName = "pw.hlp";

struct HelpTopic {
    int context;
    std::string title;
};

// The topics of a help file in file order: each anchor
// <a name="context-N"></a> with the text that follows it up to the next tag.
std::vector<HelpTopic> HelpTopics(std::string_view helpFile);

// The anchor name of a context number: "context-N".
std::string HelpAnchor(int context);

// The help file as a book of pages. Every <h1> starts a page; the page's
// name is the first anchor (<a name="...">) inside that heading, its title
// the heading's text. Anchors elsewhere in a page are places within it.
struct HelpPage {
    std::string name;
    std::string title;
    std::string html;                  // from its <h1> up to the next page
    std::vector<std::string> anchors;  // every anchor name in the page, its own first
    std::string text;                  // the page's words without tags, lower-cased
};

struct HelpBook {
    std::vector<HelpPage> pages;
    // The page that holds an anchor, or -1.
    int PageOf(std::string_view anchor) const;
};

HelpBook ReadHelpBook(std::string_view helpFile);

// The targets of the in-book links of a piece of the help (href="#name"),
// in order.
std::vector<std::string> HelpLinks(std::string_view html);

// The keyword index: the page named "index" lists its entries as links,
// each a keyword and the anchor it leads to.
struct HelpIndexEntry {
    std::string keyword;
    std::string anchor;
};
std::vector<HelpIndexEntry> HelpIndex(const HelpBook& book);

// The pages holding every word of a query (blank-separated, any letter
// case), in book order; the index page itself is left out.
std::vector<int> SearchHelp(const HelpBook& book, std::string_view query);

// HTML text with its tags removed and the few entities the help uses
// (&amp; &lt; &gt; &quot; &nbsp;) turned back into characters.
std::string HelpPlainText(std::string_view html);

// What the help window does with a link of the help file, by its scheme:
// "help" (its own pages) and a link within the file are followed, a web
// address is opened in the browser only once the user agreed to the whole
// address, anything else (file:, mailto:, data:, ...) is refused.
enum class HelpLinkKind { InBook, Web, Refused };
HelpLinkKind ClassifyHelpLink(std::string_view scheme);

// The file name in the help folder a picture of a page is read from: its
// source is "help/NAME" or "NAME" with a plain name (letters, digits, '.',
// '-', '_', not starting with '.'); any other source (another folder, a
// scheme such as file: or http:) gives "" and is never loaded.
std::string HelpPictureFile(std::string_view source);

// How deep the elements of a piece of HTML nest: opening tags less closing
// ones, at their deepest; tags that need no closing (br, img, p, li, td...)
// do not count.
int HtmlNestingDepth(std::string_view html);

// Whether a page is laid out as HTML: at most kHelpPageHtmlLimit bytes and
// nesting at most kHelpNestingLimit deep. Any other page is shown as plain
// text, which lays out quickly whatever it holds.
inline constexpr std::size_t kHelpPageHtmlLimit = 512u << 10;
inline constexpr int kHelpNestingLimit = 48;
bool HelpPageShownAsHtml(std::string_view html);

// The about box's data version: the version line after its first "v", or
// the whole line when it has none.
std::string DataVersionText(std::string_view dataVersionLine);

}  // namespace pw
