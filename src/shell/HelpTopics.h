#pragma once
// The help file: one HTML page whose topics are marked with anchors named
// "context-N", N being the context number the program opens it at. The
// numbers are the contract between the program and its help file.
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

// The about box's data version: the version line after its first "v", or
// the whole line when it has none.
std::string DataVersionText(std::string_view dataVersionLine);

}  // namespace pw
