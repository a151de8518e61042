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

} // namespace tsl
