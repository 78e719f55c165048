#pragma once

#include <QLatin1String>
#include <algorithm>
#include <array>

namespace quillbrook {

// The categories of the library, in the order in which it holds them.
constexpr std::array<QLatin1String, 16> kCategories = {{
    QLatin1String("Acknowledgment / Jurat"),
    QLatin1String("Affidavits"),
    QLatin1String("Corporations"),
    QLatin1String("Criminal Actions"),
    QLatin1String("Gratuitous Contracts"),
    QLatin1String("Labor-Management"),
    QLatin1String("Law Practice"),
    QLatin1String("Lease"),
    QLatin1String("Mortgages"),
    QLatin1String("Motions"),
    QLatin1String("Negotiable Instruments"),
    QLatin1String("Partnerships"),
    QLatin1String("Pleadings"),
    QLatin1String("Power of Attorney"),
    QLatin1String("Sales"),
    QLatin1String("Special Contracts"),
}};

// Its place in the list above; the list's size when the library has no such category.
inline std::size_t CategoryIndex(const QString& category) {
    return static_cast<std::size_t>(std::find(kCategories.begin(), kCategories.end(), category) -
                                    kCategories.begin());
}

} // namespace quillbrook
