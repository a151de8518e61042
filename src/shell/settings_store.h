#pragma once
// Everything the program remembers between runs: strings by application, section and key.
#include <QList>
#include <QMap>
#include <QPair>
#include <QString>
#include <memory>

class QSettings;

namespace tsl {

inline const QString kAppName = QStringLiteral("Tessaline 2");

class SettingsStore {
  public:
    using Pairs = QList<QPair<QString, QString>>;
    virtual ~SettingsStore() = default;
    virtual QString GetSetting(const QString& app, const QString& section, const QString& key,
                               const QString& defaultValue = QString()) const = 0;
    virtual void SaveSetting(const QString& app, const QString& section, const QString& key,
                             const QString& value) = 0;
    virtual void DeleteSetting(const QString& app, const QString& section, const QString& key) = 0;
    // All keys of a section, in the order of their names.
    virtual Pairs GetAllSettings(const QString& app, const QString& section) const = 0;

    // The application's own keys, which is all the program ever uses.
    QString get(const QString& section, const QString& key, const QString& def = QString()) const {
        return GetSetting(kAppName, section, key, def);
    }
    void save(const QString& section, const QString& key, const QString& value) {
        SaveSetting(kAppName, section, key, value);
    }
};

class MemorySettingsStore : public SettingsStore {
  public:
    QString GetSetting(const QString& app, const QString& section, const QString& key,
                       const QString& defaultValue) const override;
    void SaveSetting(const QString& app, const QString& section, const QString& key,
                     const QString& value) override;
    void DeleteSetting(const QString& app, const QString& section, const QString& key) override;
    Pairs GetAllSettings(const QString& app, const QString& section) const override;
    int writeCount() const { return writes_; }

  private:
    QMap<QString, QMap<QString, QString>> sections_; // "app\nsection" -> key -> value
    int writes_ = 0;
};

// The per-user store on disk: one INI file per application under the user's config folder.
class QSettingsStore : public SettingsStore {
  public:
    QSettingsStore();
    ~QSettingsStore() override;
    QString GetSetting(const QString& app, const QString& section, const QString& key,
                       const QString& defaultValue) const override;
    void SaveSetting(const QString& app, const QString& section, const QString& key,
                     const QString& value) override;
    void DeleteSetting(const QString& app, const QString& section, const QString& key) override;
    Pairs GetAllSettings(const QString& app, const QString& section) const override;

  private:
    QSettings& settingsFor(const QString& app) const;
    mutable QMap<QString, std::shared_ptr<QSettings>> files_;
};

// The settings keys the shell reads and writes.
namespace keys {
inline const QString Fuzzies = QStringLiteral("Fuzzies");
inline const QString Browser = QStringLiteral("Browser");
inline const QString FontName = QStringLiteral("Font Name");
inline const QString FontSize = QStringLiteral("Font Size");
inline const QString WordWrap = QStringLiteral("Word Wrap");
inline const QString DefaultDir = QStringLiteral("Default Dir");
inline const QString UseRelativeAtStart = QStringLiteral("UseRelative");
inline const QString UseRelative = QStringLiteral("Use Relative");
inline const QString AutoCloseTag = QStringLiteral("Auto Close Tag");
inline const QString FormsToolbarOpen = QStringLiteral("Forms Toolbar Open");
inline const QString StandardToolbarOpen = QStringLiteral("Standard Toolbar Open");
inline const QString TagsToolbarOpen = QStringLiteral("Tags Toolbar Open");
inline const QString TagListOpen = QStringLiteral("TagListOpen");
inline const QString ShowBorders = QStringLiteral("Show Borders");
inline const QString BrowserLoc = QStringLiteral("BrowserLoc");
} // namespace keys

// A right margin of this many twips keeps lines from wrapping.
constexpr int kNoWrapMargin = 120000;
inline int rightMarginFor(const QString& wordWrap) {
    return wordWrap == QLatin1String("0") ? kNoWrapMargin : 0;
}

} // namespace tsl
