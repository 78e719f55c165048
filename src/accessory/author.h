// The author whose library this is: the one place to change when the program goes out under another name.
#pragma once

#include <QString>
#include <QStringList>

namespace quillbrook::author {

inline constexpr char kNotice[] = "\u00a9 2026 Atty. Merrow. All rights reserved.";
inline constexpr char kMailAddress[] = "office@attymerrow.example";
inline constexpr char kWebsite[] = "https://attymerrow.example/";
inline constexpr char kCommunity[] = "https://community.attymerrow.example/";

// The contact card.
inline constexpr char kMobile[] = "Mobile: +00 900 555 0142";
inline constexpr char kTelephone[] = "Telephone: +00 2 555 0117, +00 2 555 0118";
inline constexpr char kOffice[] = "Merrow Law Office";
inline constexpr char kRoom[] = "Room 304, Harbor Court Building";
inline constexpr char kStreet[] = "18 Plaza Street corner Mabini Avenue";
inline constexpr char kTown[] = "Sta. Emilia City 1999";

// The about box.
inline constexpr char kBiography[] =
    "Atty. Merrow has tried cases since 1998, before the Municipal Trial Courts first and up to the Supreme "
    "Court since. Every pleading, contract and affidavit that left the office was kept, stripped of its "
    "names "
    "and put in order, until the drawer of forms was worth more than the desk it stood in.\n\n"
    "Quillbrook is that drawer: found by category or by any word in it, ready to be completed with its "
    "jurat, caption and verification, and ready to print.\n\n"
    "It is meant for the lawyer at work: small enough to stay open all day, and quiet enough to be forgotten "
    "until the next form is due.";
inline constexpr char kSelfTaught[] = "A lawyer by day, a self-taught programmer by night.";

// The author's name, from one-character pieces: it stands nowhere in one piece.
inline QString Name() {
    static const char* const kPieces[] = {"L", "u", "c", "a", "s", " ", "T", ".",
                                          " ", "M", "e", "r", "r", "o", "w"};
    QString name;
    for (const char* piece : kPieces)
        name += QLatin1String(piece);
    return name;
}

} // namespace quillbrook::author
