#pragma once
#include <string>
#include <string_view>

namespace norvane {

// Where element sets are fetched from. A server is either a base URL, after
// which "/NORAD/elements/NAME.txt" is put, or a URL template in which
// "{group}" stands for the category's file name and "{format}" for "tle".

inline constexpr std::string_view kGroupField = "{group}";
inline constexpr std::string_view kFormatField = "{format}";

// The query form today's public element server answers.
inline constexpr const char* kDefaultElementServer =
    "https://celestrak.org/NORAD/elements/gp.php?GROUP={group}&FORMAT=tle";

// True when the server holds "{group}".
bool isServerTemplate(std::string_view server);

// The URL of one category: the template filled in, or the base URL (trailing
// slashes dropped) followed by "/NORAD/elements/NAME.txt".
std::string categoryUrl(std::string_view server, std::string_view fileName);

// "scheme://host[:port]/" of the server, for "Go to WebSite"; the server
// itself when it has no "://".
std::string serverHomePage(std::string_view server);

}  // namespace norvane
