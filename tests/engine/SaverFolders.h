#pragma once

#include <QString>
#include <QTemporaryDir>
#include <QVariantMap>

namespace kestro {

/// A home and a platform root with the saver bundles and preference files that a test puts there; both are
/// the process's own as long as this lives.
class SaverFolders final {
public:
    SaverFolders();
    ~SaverFolders();

    [[nodiscard]] QString home() const { return m_folder.filePath(QStringLiteral("home")); }
    [[nodiscard]] QString root() const { return m_folder.filePath(QStringLiteral("root")); }
    /// The user's own folder of savers.
    [[nodiscard]] QString savers() const { return home() + QStringLiteral("/Library/Screen Savers"); }
    [[nodiscard]] QString byHost() const { return home() + QStringLiteral("/Library/Preferences/ByHost"); }

    /// A bundle of the test's library at `path`, with that principal class; answers the path.
    static QString putBundle(const QString& path, const QString& principal);
    /// The bundle of the saver that shows a folder of pictures, where the system has it.
    void putPictureFolderSaver() const;
    static void putFile(const QString& path);
    static void putPreferences(const QString& path, const QVariantMap& preferences);
    /// What the property list holds; empty when it cannot be read.
    static QVariantMap preferences(const QString& path);

private:
    QTemporaryDir m_folder;
};

} // namespace kestro
