#include "shell/HelpTopics.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <utility>

#include "core/Text.h"

namespace pw {

std::string HelpAnchor(int context) { return "context-" + std::to_string(context); }

std::vector<HelpTopic> HelpTopics(std::string_view file)
{
    static constexpr std::string_view kOpen = "<a name=\"context-";
    std::vector<HelpTopic> topics;
    std::size_t at = 0;
    while ((at = file.find(kOpen, at)) != std::string_view::npos) {
        at += kOpen.size();
        std::size_t end = at;
        while (end < file.size() && end - at < 6 && file[end] >= '0' && file[end] <= '9')
            ++end;
        if (end == at || file.substr(end, 2) != "\">")
            continue;
        const int context = std::atoi(std::string(file.substr(at, end - at)).c_str());
        std::size_t text = file.find("</a>", end);
        if (text == std::string_view::npos)
            break;
        text += 4;
        const std::size_t stop = file.find('<', text);
        std::string title = Trim(file.substr(text, stop == std::string_view::npos ? std::string_view::npos : stop - text));
        topics.push_back({context, title});
        at = text;
    }
    return topics;
}

namespace {

// The value of the attribute that starts at at (just after its opening
// quote) up to the closing quote, or nothing when the quote never closes.
std::string_view QuotedValue(std::string_view text, std::size_t at)
{
    const std::size_t end = text.find('"', at);
    if (end == std::string_view::npos)
        return {};
    return text.substr(at, end - at);
}

// Every value of attr="..." in text, in order.
std::vector<std::string> AttributeValues(std::string_view text, std::string_view attr)
{
    std::vector<std::string> values;
    std::size_t at = 0;
    while ((at = text.find(attr, at)) != std::string_view::npos) {
        at += attr.size();
        const std::string_view value = QuotedValue(text, at);
        if (!value.empty())
            values.emplace_back(value);
        at += value.size();
    }
    return values;
}

bool IsInlineTag(std::string_view tag)
{
    std::size_t start = tag.starts_with('/') ? 1 : 0;
    std::size_t end = start;
    while (end < tag.size() && ((tag[end] >= 'a' && tag[end] <= 'z') || (tag[end] >= '0' && tag[end] <= '9')))
        ++end;
    const std::string_view name = tag.substr(start, end - start);
    for (std::string_view inlineName : {"a", "b", "i", "em", "strong", "code", "kbd", "span", "tt"})
        if (name == inlineName)
            return true;
    return false;
}

}  // namespace

std::string HelpPlainText(std::string_view html)
{
    static constexpr std::pair<std::string_view, char> kEntities[] = {
        {"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}, {"&nbsp;", ' '}};
    std::string text;
    text.reserve(html.size());
    std::size_t i = 0;
    while (i < html.size()) {
        const char c = html[i];
        if (c == '<') {
            const std::size_t close = html.find('>', i);
            if (close == std::string_view::npos)
                break;
            if (!IsInlineTag(html.substr(i + 1, close - i - 1)))
                text += ' ';
            i = close + 1;
            continue;
        }
        if (c == '&') {
            bool replaced = false;
            for (const auto& [entity, character] : kEntities) {
                if (html.substr(i, entity.size()) == entity) {
                    text += character;
                    i += entity.size();
                    replaced = true;
                    break;
                }
            }
            if (replaced)
                continue;
        }
        text += (c == '\r' || c == '\n' || c == '\t') ? ' ' : c;
        ++i;
    }
    // One blank between words.
    std::string folded;
    for (char c : text) {
        if (c == ' ' && (folded.empty() || folded.back() == ' '))
            continue;
        folded += c;
    }
    return Trim(folded);
}

int HelpBook::PageOf(std::string_view anchor) const
{
    for (std::size_t p = 0; p < pages.size(); ++p)
        for (const std::string& name : pages[p].anchors)
            if (name == anchor)
                return static_cast<int>(p);
    return -1;
}

HelpBook ReadHelpBook(std::string_view file)
{
    static constexpr std::string_view kHeading = "<h1";
    static constexpr std::string_view kHeadingEnd = "</h1>";
    HelpBook book;
    std::size_t end = file.find("</body>");
    if (end == std::string_view::npos)
        end = file.size();
    const std::string_view body = file.substr(0, end);
    std::size_t at = body.find(kHeading);
    while (at != std::string_view::npos) {
        const std::size_t next = body.find(kHeading, at + kHeading.size());
        HelpPage page;
        page.html = std::string(body.substr(at, next == std::string_view::npos ? std::string_view::npos : next - at));
        const std::string_view html = page.html;
        const std::size_t headingEnd = html.find(kHeadingEnd);
        const std::string_view heading = html.substr(0, headingEnd);
        const std::vector<std::string> own = AttributeValues(heading, "name=\"");
        if (!own.empty())
            page.name = own.front();
        const std::size_t headingText = heading.find('>');
        page.title = headingText == std::string_view::npos ? std::string() : HelpPlainText(heading.substr(headingText + 1));
        page.anchors = AttributeValues(html, "name=\"");
        page.text = LowerLatin1(HelpPlainText(html));
        book.pages.push_back(std::move(page));
        at = next;
    }
    return book;
}

std::vector<std::string> HelpLinks(std::string_view html) { return AttributeValues(html, "href=\"#"); }

std::vector<HelpIndexEntry> HelpIndex(const HelpBook& book)
{
    static constexpr std::string_view kLink = "<a href=\"#";
    std::vector<HelpIndexEntry> entries;
    const int index = book.PageOf("index");
    if (index < 0)
        return entries;
    const std::string_view html = book.pages[static_cast<std::size_t>(index)].html;
    std::size_t at = 0;
    while ((at = html.find(kLink, at)) != std::string_view::npos) {
        at += kLink.size();
        const std::string_view anchor = QuotedValue(html, at);
        const std::size_t open = html.find('>', at);
        const std::size_t close = html.find("</a>", at);
        if (anchor.empty() || open == std::string_view::npos || close == std::string_view::npos || close < open)
            continue;
        entries.push_back({HelpPlainText(html.substr(open + 1, close - open - 1)), std::string(anchor)});
        at = close;
    }
    return entries;
}

std::vector<int> SearchHelp(const HelpBook& book, std::string_view query)
{
    std::vector<std::string> words;
    const std::string lowered = LowerLatin1(query);
    std::size_t at = 0;
    while (at < lowered.size()) {
        const std::size_t blank = lowered.find(' ', at);
        const std::size_t end = blank == std::string::npos ? lowered.size() : blank;
        if (end > at)
            words.push_back(lowered.substr(at, end - at));
        at = end + 1;
    }
    std::vector<int> found;
    if (words.empty())
        return found;
    for (std::size_t p = 0; p < book.pages.size(); ++p) {
        const HelpPage& page = book.pages[p];
        if (page.name == "index")
            continue;
        bool all = true;
        for (const std::string& word : words)
            all = all && page.text.find(word) != std::string::npos;
        if (all)
            found.push_back(static_cast<int>(p));
    }
    return found;
}

std::string DataVersionText(std::string_view line)
{
    const auto v = line.find('v');
    return std::string(v == std::string_view::npos ? line : line.substr(v + 1));
}

HelpLinkKind ClassifyHelpLink(std::string_view scheme)
{
    const std::string lower = LowerLatin1(scheme);
    if (lower.empty() || lower == "help")
        return HelpLinkKind::InBook;
    if (lower == "http" || lower == "https")
        return HelpLinkKind::Web;
    return HelpLinkKind::Refused;
}

std::string HelpPictureFile(std::string_view source)
{
    constexpr std::string_view folder = "help/";
    if (source.substr(0, folder.size()) == folder)
        source.remove_prefix(folder.size());
    if (source.empty() || source.size() > 200 || source.front() == '.')
        return {};
    for (char c : source) {
        const bool plain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '.' ||
                           c == '-' || c == '_';
        if (!plain)
            return {};
    }
    return std::string(source);
}

int HtmlNestingDepth(std::string_view html)
{
    // Elements a page may leave open or that hold nothing.
    static const char* const kNotCounted[] = {"br", "img", "hr", "p", "li", "dt", "dd", "td", "th", "tr",
                                              "meta", "link", "input", "col", "area", "base", "wbr",
                                              "option", "thead", "tbody", "tfoot", "html", "head", "body"};
    int depth = 0;
    int deepest = 0;
    std::size_t i = 0;
    while ((i = html.find('<', i)) != std::string_view::npos) {
        ++i;
        if (html.substr(i, 3) == "!--") {  // a comment, tags in it or not
            const std::size_t end = html.find("-->", i + 3);
            if (end == std::string_view::npos)
                break;
            i = end + 3;
            continue;
        }
        if (i < html.size() && html[i] == '!') {  // a declaration
            const std::size_t end = html.find('>', i);
            if (end == std::string_view::npos)
                break;
            i = end + 1;
            continue;
        }
        const bool closing = i < html.size() && html[i] == '/';
        if (closing)
            ++i;
        std::size_t nameEnd = i;
        while (nameEnd < html.size() && std::isalnum(static_cast<unsigned char>(html[nameEnd])))
            ++nameEnd;
        if (nameEnd == i)
            continue;
        const std::string name = LowerLatin1(html.substr(i, nameEnd - i));
        const std::size_t end = html.find('>', nameEnd);
        const bool selfClosing = end != std::string_view::npos && end > nameEnd && html[end - 1] == '/';
        i = nameEnd;
        bool counted = !selfClosing;
        for (const char* skip : kNotCounted)
            counted = counted && name != skip;
        if (!counted)
            continue;
        if (closing) {
            depth = depth > 0 ? depth - 1 : 0;
        } else {
            deepest = std::max(deepest, ++depth);
        }
    }
    return deepest;
}

bool HelpPageShownAsHtml(std::string_view html)
{
    return html.size() <= kHelpPageHtmlLimit && HtmlNestingDepth(html) <= kHelpNestingLimit;
}

}  // namespace pw
