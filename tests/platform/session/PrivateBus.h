#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QHash>
#include <QProcess>
#include <QTemporaryDir>
#include <QVariantList>

#include <functional>

namespace kestro {

/// A message bus of this test alone, that starts no services. It ends with this.
class PrivateBus final {
public:
    PrivateBus();
    ~PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    /// A connection of its own, to be left with disconnect(); what is left open ends with this.
    [[nodiscard]] QDBusConnection connect();
    [[nodiscard]] const QString& address() const { return m_address; }
    static void disconnect(const QDBusConnection& connection);
    /// Takes `object`, which answered there, off the bus. No call that was on its way reaches it any more.
    static void disconnect(QDBusConnection& connection, QDBusVirtualObject& object);

private:
    QTemporaryDir m_folder;
    QProcess m_daemon;
    QString m_address;
    QStringList m_names;
};

/// A service on a bus that answers as it is told to: any method at any path by its name.
class FakeService final : public QDBusVirtualObject {
public:
    FakeService(PrivateBus& bus, QString name);
    ~FakeService() override;

    /// What the method `member` answers, everywhere, or at one path where `member` is "/path member".
    void answer(const QString& member, const QVariantList& answer) { m_answers.insert(member, answer); }
    /// What a property has, by its name, or by "/path name".
    void setValue(const QString& property, const QVariant& value) { m_values.insert(property, value); }
    /// From now on no call is answered at all.
    void hang() { m_hangs = true; }
    void recover() { m_hangs = false; }
    void signal(const QString& path, const QString& interface, const QString& member,
                const QVariantList& arguments);
    /// Tells that properties of `interface` have changed, without their values.
    void signalChange(const QString& path, const QString& interface);
    void leave();

    /// The names of the methods that were called; of a property "Get name".
    [[nodiscard]] const QStringList& calls() const { return m_calls; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;
    [[nodiscard]] QString introspect(const QString& path) const override;

private:
    QDBusConnection m_connection;
    QString m_name;
    QHash<QString, QVariantList> m_answers;
    QHash<QString, QVariant> m_values;
    QStringList m_calls;
    bool m_hangs = false;
};

} // namespace kestro
