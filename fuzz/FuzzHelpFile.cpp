// Any bytes as pw.hlp: its topics are found in file order, each with a
// context number of at most six digits and a trimmed title holding no tag;
// its pages, index, links and a search of its first bytes are read without
// a fault, and every page an anchor leads to is one of the book's; a page is
// laid out as HTML only when shallow enough, and a picture's source never
// names anything outside the help folder.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "shell/HelpTopics.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view file(reinterpret_cast<const char*>(data), size);
    for (const pw::HelpTopic& topic : pw::HelpTopics(file)) {
        if (topic.context < 0 || topic.context > 999999)
            std::abort();
        if (topic.title.find('<') != std::string_view::npos)
            std::abort();
        if (!topic.title.empty() && (topic.title.front() == ' ' || topic.title.back() == ' '))
            std::abort();
        if (pw::HelpAnchor(topic.context).rfind("context-", 0) != 0)
            std::abort();
    }
    const pw::HelpBook book = pw::ReadHelpBook(file);
    for (const pw::HelpIndexEntry& entry : pw::HelpIndex(book))
        if (book.PageOf(entry.anchor) >= static_cast<int>(book.pages.size()))
            std::abort();
    for (const int page : pw::SearchHelp(book, std::string(file.substr(0, 20))))
        if (page < 0 || page >= static_cast<int>(book.pages.size()))
            std::abort();
    pw::HelpLinks(file);
    // Pages too large or too deep are never laid out as HTML; a picture is
    // only ever a plain name in the help folder.
    for (const pw::HelpPage& page : book.pages)
        if (pw::HelpPageShownAsHtml(page.html) && pw::HtmlNestingDepth(page.html) > pw::kHelpNestingLimit)
            std::abort();
    const std::string picture = pw::HelpPictureFile(file.substr(0, 64));
    if (!picture.empty() && (picture.find('/') != std::string::npos || picture.front() == '.'))
        std::abort();
    pw::ClassifyHelpLink(file.substr(0, 16));
    return 0;
}
