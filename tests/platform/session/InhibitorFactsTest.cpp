#include "platform/base/Bounds.h"
#include "platform/session/FactTest.h"
#include "platform/session/LogindInhibitors.h"
#include "platform/session/PlasmaInhibitors.h"
#include "platform/session/PowerManagementInhibitors.h"
#include "platform/session/SessionManagerInhibitors.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusObjectPath>

using namespace kestro;

namespace {

/// As Plasma lists an inhibition.
struct Pair {
    QString who;
    QString why;
};

/// As logind lists an inhibitor.
struct Entry {
    QString what;
    QString who;
    QString why;
    QString mode;
    uint user = 0;
    uint process = 0;
};

QDBusArgument& operator<<(QDBusArgument& argument, const Pair& pair)
{
    argument.beginStructure();
    argument << pair.who << pair.why;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, Pair& pair)
{
    argument.beginStructure();
    argument >> pair.who >> pair.why;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const Entry& entry)
{
    argument.beginStructure();
    argument << entry.what << entry.who << entry.why << entry.mode << entry.user << entry.process;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, Entry& entry)
{
    argument.beginStructure();
    argument >> entry.what >> entry.who >> entry.why >> entry.mode >> entry.user >> entry.process;
    argument.endStructure();
    return argument;
}

} // namespace

Q_DECLARE_METATYPE(Pair)
Q_DECLARE_METATYPE(Entry)

namespace {

Hindrance by(const QString& who, const QString& why = {})
{
    return {HindranceKind::Inhibited, who, why};
}

const QString firefox = QStringLiteral("firefox");
const QString playingVideo = QStringLiteral("playing video");

class GnomeSession : public FactTest {
protected:
    const QString m_name = QStringLiteral("org.gnome.SessionManager");
    const QString m_path = QStringLiteral("/org/gnome/SessionManager");
    const QString m_first = QStringLiteral("/org/gnome/SessionManager/Inhibitor1");
    const QString m_second = QStringLiteral("/org/gnome/SessionManager/Inhibitor2");

    void SetUp() override
    {
        m_manager.setValue(QStringLiteral("InhibitedActions"), 0u);
        addInhibitor(m_first, firefox, playingVideo, 8);
        addInhibitor(m_second, QStringLiteral("updater"), QStringLiteral("updates"), 4);
        list({m_first, m_second});
    }
    void addInhibitor(const QString& path, const QString& who, const QString& why, uint flags)
    {
        m_manager.answer(path + QStringLiteral(" GetAppId"), {who});
        m_manager.answer(path + QStringLiteral(" GetReason"), {why});
        m_manager.answer(path + QStringLiteral(" GetFlags"), {flags});
    }
    void list(const QStringList& paths)
    {
        QList<QDBusObjectPath> objects;
        for (const QString& path : paths)
            objects.append(QDBusObjectPath(path));
        m_manager.answer(QStringLiteral("GetInhibitors"), {QVariant::fromValue(objects)});
    }
    void inhibit(uint actions) { m_manager.setValue(QStringLiteral("InhibitedActions"), actions); }

    FakeService m_manager{m_bus, m_name};
};

class PlasmaSession : public FactTest {
protected:
    const QString m_name = QStringLiteral("org.kde.Solid.PowerManagement.PolicyAgent");

    void SetUp() override
    {
        qDBusRegisterMetaType<Pair>();
        qDBusRegisterMetaType<QList<Pair>>();
        inhibit({});
    }
    void inhibit(const QList<Pair>& by)
    {
        m_agent.answer(QStringLiteral("HasInhibition"), {!by.isEmpty()});
        m_agent.answer(QStringLiteral("ListInhibitions"), {QVariant::fromValue(by)});
    }

    FakeService m_agent{m_bus, m_name};
};

class Logind : public FactTest {
protected:
    void SetUp() override
    {
        qDBusRegisterMetaType<Entry>();
        qDBusRegisterMetaType<QList<Entry>>();
        block(QStringLiteral("shutdown:sleep"), {});
    }
    void block(const QString& what, const QList<Entry>& by)
    {
        m_logind.setValue(QStringLiteral("BlockInhibited"), what);
        m_logind.answer(QStringLiteral("ListInhibitors"), {QVariant::fromValue(by)});
    }

    FakeService m_logind{m_bus, QStringLiteral("org.freedesktop.login1")};
};

class XfceSession : public FactTest {
protected:
    FakeService m_service{m_bus, QStringLiteral("org.freedesktop.PowerManagement")};
};

constexpr uint me = 1000;
constexpr uint another = 1001;

} // namespace

TEST_F(GnomeSession, idle_isInhibitedByName_whenBit8IsSet)
{
    inhibit(8 | 4);
    SessionManagerInhibitors fact(m_ours);
    EXPECT_EQ(asked(fact), QList<Hindrance>{by(firefox, playingVideo)});
}

TEST_F(GnomeSession, idle_isNotInhibited_whenOnlyOtherBitsAreSet)
{
    inhibit(1 | 2 | 4 | 16);
    SessionManagerInhibitors fact(m_ours);
    EXPECT_TRUE(asked(fact).isEmpty());
}

TEST_F(GnomeSession, change_isTold_whenAnInhibitorComesAndGoes)
{
    SessionManagerInhibitors fact(m_ours);
    ASSERT_TRUE(asked(fact).isEmpty());
    inhibit(8);
    m_manager.signal(m_path, m_name, QStringLiteral("InhibitorAdded"),
                     {QVariant::fromValue(QDBusObjectPath(m_first))});
    EXPECT_TRUE(comesToHave(fact, 1));
    inhibit(0);
    m_manager.signal(m_path, m_name, QStringLiteral("InhibitorRemoved"),
                     {QVariant::fromValue(QDBusObjectPath(m_first))});
    EXPECT_TRUE(comesToHave(fact, 0));
}

TEST_F(GnomeSession, idle_isInhibitedByNobodyNamed_whenNamesCannotBeHad)
{
    inhibit(8);
    m_manager.answer(m_first + QStringLiteral(" GetAppId"), {});
    SessionManagerInhibitors fact(m_ours);
    EXPECT_EQ(asked(fact), QList<Hindrance>{by({})});
}

TEST_F(GnomeSession, inhibitors_areAskedForTheirNamesUpToABound_whenThereAreVeryMany)
{
    inhibit(8);
    list(QStringList(10 * Bounds::inhibitorsAsked, m_first));
    SessionManagerInhibitors fact(m_ours);
    EXPECT_EQ(asked(fact).size(), Bounds::inhibitorsAsked);
}

TEST_F(GnomeSession, idle_isNotInhibited_whenTheManagerHangs)
{
    inhibit(8);
    SessionManagerInhibitors fact(m_ours);
    ASSERT_EQ(asked(fact).size(), 1);
    m_manager.hang();
    EXPECT_TRUE(asked(fact).isEmpty());
}

TEST_F(GnomeSession, idle_isNotInhibited_whenTheManagerLeaves)
{
    inhibit(8);
    SessionManagerInhibitors fact(m_ours);
    ASSERT_EQ(asked(fact).size(), 1);
    m_manager.leave();
    EXPECT_TRUE(comesToHave(fact, 0));
}

TEST_F(PlasmaSession, screen_isInhibitedByName_whenOneProgramAsked)
{
    inhibit({{firefox, playingVideo}});
    PlasmaInhibitors fact(m_ours);
    EXPECT_EQ(asked(fact), QList<Hindrance>{by(firefox, playingVideo)});
}

TEST_F(PlasmaSession, screen_isInhibitedByOneOfThem_whenSeveralAsked)
{
    inhibit({{firefox, playingVideo}, {QStringLiteral("updater"), QStringLiteral("updates")}});
    PlasmaInhibitors fact(m_ours);
    EXPECT_EQ(asked(fact), QList<Hindrance>{by(QStringLiteral("firefox, updater"))});
}

TEST_F(PlasmaSession, screen_isNotInhibited_whenSomethingElseIs)
{
    inhibit({{firefox, playingVideo}});
    m_agent.answer(QStringLiteral("HasInhibition"), {false});
    PlasmaInhibitors fact(m_ours);
    EXPECT_TRUE(asked(fact).isEmpty());
}

TEST_F(PlasmaSession, change_isTold_whenInhibitionsChange)
{
    PlasmaInhibitors fact(m_ours);
    ASSERT_TRUE(asked(fact).isEmpty());
    inhibit({{firefox, playingVideo}});
    m_agent.signal(QStringLiteral("/org/kde/Solid/PowerManagement/PolicyAgent"), m_name,
                   QStringLiteral("InhibitionsChanged"), {QStringList(), QStringList()});
    EXPECT_TRUE(comesToHave(fact, 1));
}

TEST_F(PlasmaSession, screen_isNotInhibited_whenTheAgentHangs)
{
    inhibit({{firefox, playingVideo}});
    PlasmaInhibitors fact(m_ours);
    ASSERT_EQ(asked(fact).size(), 1);
    m_agent.hang();
    EXPECT_TRUE(asked(fact).isEmpty());
}

TEST_F(XfceSession, screen_isInhibitedByName_whenProgramsAsked)
{
    m_service.answer(QStringLiteral("HasInhibit"), {true});
    m_service.answer(QStringLiteral("GetInhibitors"), {QStringList{firefox, QStringLiteral("vlc")}});
    PowerManagementInhibitors fact(m_ours);
    EXPECT_EQ(asked(fact), QList<Hindrance>{by(QStringLiteral("firefox, vlc"))});
}

TEST_F(XfceSession, change_isTold_whenTheInhibitionEnds)
{
    m_service.answer(QStringLiteral("HasInhibit"), {true});
    PowerManagementInhibitors fact(m_ours);
    ASSERT_EQ(asked(fact), QList<Hindrance>{by({})});
    m_service.answer(QStringLiteral("HasInhibit"), {false});
    m_service.signal(QStringLiteral("/org/freedesktop/PowerManagement/Inhibit"),
                     QStringLiteral("org.freedesktop.PowerManagement.Inhibit"),
                     QStringLiteral("HasInhibitChanged"), {false});
    EXPECT_TRUE(comesToHave(fact, 0));
}

TEST_F(XfceSession, screen_isNotInhibited_whenTheServiceHangs)
{
    m_service.answer(QStringLiteral("HasInhibit"), {true});
    PowerManagementInhibitors fact(m_ours);
    ASSERT_EQ(asked(fact).size(), 1);
    m_service.hang();
    EXPECT_TRUE(asked(fact).isEmpty());
}

TEST_F(Logind, idle_isBlockedByName_whenAProgramOfOursAsked)
{
    block(QStringLiteral("idle:sleep"),
          {{QStringLiteral("sleep:idle"), firefox, playingVideo, QStringLiteral("block"), me, 1}});
    LogindInhibitors fact(m_ours, me);
    EXPECT_EQ(asked(fact), QList<Hindrance>{by(firefox, playingVideo)});
}

TEST_F(Logind, idle_isNotBlocked_whenAnotherUserAsked)
{
    block(QStringLiteral("idle"),
          {{QStringLiteral("idle"), firefox, playingVideo, QStringLiteral("block"), another, 1}});
    LogindInhibitors fact(m_ours, me);
    EXPECT_TRUE(asked(fact).isEmpty());
}

TEST_F(Logind, idle_isNotBlocked_whenSleepIs)
{
    block(QStringLiteral("idle"),
          {{QStringLiteral("sleep"), firefox, playingVideo, QStringLiteral("block"), me, 1}});
    LogindInhibitors fact(m_ours, me);
    EXPECT_TRUE(asked(fact).isEmpty());
}

TEST_F(Logind, change_isTold_whenTheBlockEnds)
{
    block(QStringLiteral("idle"),
          {{QStringLiteral("idle"), firefox, playingVideo, QStringLiteral("block"), me, 1}});
    LogindInhibitors fact(m_ours, me);
    ASSERT_EQ(asked(fact).size(), 1);
    block({}, {});
    m_logind.signalChange(QStringLiteral("/org/freedesktop/login1"),
                          QStringLiteral("org.freedesktop.login1.Manager"));
    EXPECT_TRUE(comesToHave(fact, 0));
}

TEST_F(Logind, idle_isNotBlocked_whenItHangs)
{
    block(QStringLiteral("idle"),
          {{QStringLiteral("idle"), firefox, playingVideo, QStringLiteral("block"), me, 1}});
    LogindInhibitors fact(m_ours, me);
    ASSERT_EQ(asked(fact).size(), 1);
    m_logind.hang();
    EXPECT_TRUE(asked(fact).isEmpty());
}
