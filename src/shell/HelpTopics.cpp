#include "shell/HelpTopics.h"

#include <cstdlib>

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

std::string DataVersionText(std::string_view line)
{
    const auto v = line.find('v');
    return std::string(v == std::string_view::npos ? line : line.substr(v + 1));
}

}  // namespace pw
