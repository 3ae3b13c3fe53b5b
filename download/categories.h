#pragma once
#include <array>
#include <string_view>

namespace norvane {

// One entry of the download list: the label shown and the file name on the server.
struct Category {
  std::string_view label;
  std::string_view fileName;
};

inline constexpr int kCategoryCount = 35;
inline constexpr int kIridiumCategory = 15;  // the one row that turns flare computation on
inline constexpr int kFirstShownCategory = 1;  // selected when the list opens

// The element-set categories in list order; the row is the list index.
const std::array<Category, kCategoryCount>& categories();

// The row whose file name or label is name, or -1.
int findCategory(std::string_view name);

}  // namespace norvane
