#pragma once

#include <QString>
#include <QVariant>

#include <optional>

namespace kestro {

/// The two settings files of one user, each read once, when first asked for, and kept. Shared by every view
/// of a process. A file that is there and cannot be read counts as empty; before it would be overwritten it
/// gets another name, with a line in the log. Main thread.
class SettingsStore final {
public:
    /// The files lie below `homeFolder`, in /Library/Preferences.
    explicit SettingsStore(QString homeFolder);

    /// The options ("Kestro.plist"): an empty dictionary when the file is missing or cannot be read.
    [[nodiscard]] const QVariantMap& plist();
    /// Has these options count from now on, in memory; the file keeps its own until writePlist().
    void setPlist(QVariantMap options);
    /// Takes one of them out, in memory likewise.
    void removeOption(const QString& key);
    /// Writes plist() whole, atomically; answers whether it was written. A line in the log says when not.
    bool writePlist();
    /// Where the file that could not be read is since plist() was written; empty where there was none.
    [[nodiscard]] const QString& keptPlist() const { return m_plist.keptAs; }
    /// The resume keys ("Kestro.def.plist"), by the same rule.
    [[nodiscard]] const QVariantMap& defaultsPlist();

    /// Options that count instead of those in the file for as long as this store lives. They are not part of
    /// plist() and never written.
    void setOptionsForThisRun(const QVariantMap& options) { m_optionsForThisRun = options; }
    /// Whether this run is to leave nothing behind (option::leavesNothing among the options for this run):
    /// then the resume keys change in memory alone.
    [[nodiscard]] bool leavesNothing() const;
    /// The option that counts, nothing when it has no value.
    [[nodiscard]] std::optional<QVariant> option(const QString& key);

    /// Sets a resume key and writes that file whole; answers whether it was written. The key stays set in
    /// memory either way.
    bool setDefaultsForKey(const QVariant& value, const QString& key);
    /// The same for several keys, with one writing.
    bool setDefaults(const QVariantMap& values);
    /// The value of a resume key, nothing when it has none.
    [[nodiscard]] std::optional<QVariant> defaultsForKey(const QString& key);
    /// Removes a resume key and writes that file whole; answers whether it was written.
    bool removeDefaultsForKey(const QString& key);

    [[nodiscard]] QString plistPath() const;
    [[nodiscard]] QString defaultsPlistPath() const;

private:
    struct Stored {
        std::optional<QVariantMap> values; ///< once read
        bool wasUnreadable = false;        ///< then, and the file has not been given another name since
        QString keptAs;                    ///< that name
    };

    [[nodiscard]] QVariantMap& options();
    [[nodiscard]] QVariantMap& defaults();
    [[nodiscard]] static QVariantMap& loadedOnce(Stored& stored, const QString& path);
    [[nodiscard]] static bool write(Stored& stored, const QString& path);
    bool writeDefaults();

    QString m_homeFolder;
    QVariantMap m_optionsForThisRun;
    Stored m_plist;
    Stored m_defaults;
};

} // namespace kestro
