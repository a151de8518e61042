#include "shell/settings_store.h"
#include <QSettings>
#include <algorithm>

namespace tsl {

namespace {
QString sectionId(const QString& app, const QString& section) {
    return app + QLatin1Char('\n') + section;
}

// QSettings reads "/" and "\" in a key as groups; a key name is free text here.
QString escapeKey(QString key) {
    key.replace(QLatin1Char('%'), QLatin1String("%25"));
    key.replace(QLatin1Char('/'), QLatin1String("%2F"));
    key.replace(QLatin1Char('\\'), QLatin1String("%5C"));
    return key;
}

QString unescapeKey(QString key) {
    key.replace(QLatin1String("%2F"), QLatin1String("/"));
    key.replace(QLatin1String("%5C"), QLatin1String("\\"));
    key.replace(QLatin1String("%25"), QLatin1String("%"));
    return key;
}

QString settingsPath(const QString& section, const QString& key) {
    return escapeKey(section) + QLatin1Char('/') + escapeKey(key);
}
} // namespace

QString MemorySettingsStore::GetSetting(const QString& app, const QString& section,
                                        const QString& key, const QString& defaultValue) const {
    const auto s = sections_.constFind(sectionId(app, section));
    if (s == sections_.cend()) return defaultValue;
    return s->value(key, defaultValue);
}

void MemorySettingsStore::SaveSetting(const QString& app, const QString& section,
                                      const QString& key, const QString& value) {
    sections_[sectionId(app, section)][key] = value;
    ++writes_;
}

void MemorySettingsStore::DeleteSetting(const QString& app, const QString& section,
                                        const QString& key) {
    auto s = sections_.find(sectionId(app, section));
    if (s != sections_.end()) s->remove(key);
    ++writes_;
}

SettingsStore::Pairs MemorySettingsStore::GetAllSettings(const QString& app,
                                                         const QString& section) const {
    Pairs pairs;
    const auto s = sections_.constFind(sectionId(app, section));
    if (s == sections_.cend()) return pairs;
    for (auto it = s->cbegin(); it != s->cend(); ++it)
        pairs.append({it.key(), it.value()});
    return pairs;
}

QSettingsStore::QSettingsStore() = default;
QSettingsStore::~QSettingsStore() = default;

QSettings& QSettingsStore::settingsFor(const QString& app) const {
    auto& slot = files_[app];
    if (!slot)
        slot = std::make_shared<QSettings>(QSettings::IniFormat, QSettings::UserScope,
                                           QStringLiteral("Tessaline"), app);
    return *slot;
}

QString QSettingsStore::GetSetting(const QString& app, const QString& section, const QString& key,
                                   const QString& defaultValue) const {
    return settingsFor(app).value(settingsPath(section, key), defaultValue).toString();
}

void QSettingsStore::SaveSetting(const QString& app, const QString& section, const QString& key,
                                 const QString& value) {
    settingsFor(app).setValue(settingsPath(section, key), value);
}

void QSettingsStore::DeleteSetting(const QString& app, const QString& section, const QString& key) {
    settingsFor(app).remove(settingsPath(section, key));
}

SettingsStore::Pairs QSettingsStore::GetAllSettings(const QString& app,
                                                    const QString& section) const {
    QSettings& s = settingsFor(app);
    s.beginGroup(escapeKey(section));
    QStringList keys = s.childKeys();
    std::sort(keys.begin(), keys.end());
    Pairs pairs;
    for (const QString& k : keys)
        pairs.append({unescapeKey(k), s.value(k).toString()});
    s.endGroup();
    return pairs;
}

} // namespace tsl
