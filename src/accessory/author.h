// The author whose library this is: the one place to change when the program goes out under another name.
#pragma once

#include <QLatin1String>

namespace quillbrook::author {

inline constexpr char kNotice[] = "\u00a9 2026 Atty. Merrow. All rights reserved.";
inline constexpr char kMailAddress[] = "office@attymerrow.example";
inline constexpr char kWebsite[] = "https://attymerrow.example/";
inline constexpr char kCommunity[] = "https://community.attymerrow.example/";

} // namespace quillbrook::author
