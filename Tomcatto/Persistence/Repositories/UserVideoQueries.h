#pragma once

namespace tomcatto::userVideoQueries {

// Every statement on the user's videos. The columns behind the thumbnail lie behind its bytes in the file, so lists
// take the flag from its index instead of reading past every picture.

inline constexpr const char *all =
    "SELECT id, displayName, bookmarkData, localCopyPath, durationSeconds, addedAt, lastPlayedAt, playCount,"
    " rowid IN (SELECT rowid FROM UserVideo WHERE userSelected = 1) FROM UserVideo ORDER BY addedAt, rowid";

inline constexpr const char *selected =
    "SELECT id, displayName, bookmarkData, localCopyPath, durationSeconds, addedAt, lastPlayedAt, playCount, 1"
    " FROM UserVideo WHERE userSelected = 1 ORDER BY addedAt, rowid";

/// ?1 the id.
inline constexpr const char *one =
    "SELECT id, displayName, bookmarkData, localCopyPath, durationSeconds, addedAt, lastPlayedAt, playCount,"
    " userSelected, thumbnailData FROM UserVideo WHERE id = ?1 LIMIT 1";

/// ?1 the id.
inline constexpr const char *exists = "SELECT 1 FROM UserVideo WHERE id = ?1 LIMIT 1";

inline constexpr const char *insert =
    "INSERT INTO UserVideo (id, displayName, bookmarkData, localCopyPath, durationSeconds, addedAt, lastPlayedAt,"
    " playCount, thumbnailData, userSelected) VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10)";

// In each of these ?1 is the id.
inline constexpr const char *remove = "DELETE FROM UserVideo WHERE id = ?1";
inline constexpr const char *setSelected = "UPDATE UserVideo SET userSelected = ?2 WHERE id = ?1";
inline constexpr const char *updateBookmark = "UPDATE UserVideo SET bookmarkData = ?2 WHERE id = ?1";
/// ?2 the date. The count stays within 32 bits.
inline constexpr const char *markPlayed = "UPDATE UserVideo SET lastPlayedAt = ?2,"
                                          " playCount = min(coalesce(playCount, 0) + 1, 2147483647) WHERE id = ?1";

}
