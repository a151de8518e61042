#pragma once
// Key by key reading and writing of INI-style files, the way style definitions have always
// been kept: a key that is there is updated where it stands, a new key goes to the end of its
// section, names of sections and keys match without regard to case, and a read gives at most
// 254 characters. A missing file, section or key reads as the default. Each write rewrites
// the whole file at once, so a failed write leaves the old file as it was.
#include <QString>

namespace tsl {

// The longest value a read hands back; longer values are cut.
inline constexpr int kProfileValueMax = 254;

QString GetPrivateProfileString(const QString& section, const QString& key,
                                const QString& defaultValue, const QString& fileName);
// False when the file could not be written (a missing folder, a read-only file).
bool WritePrivateProfileString(const QString& section, const QString& key, const QString& value,
                               const QString& fileName);

} // namespace tsl
