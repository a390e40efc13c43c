#include "platform/saver/SaverBundle.h"

#include "platform/base/Clock.h"
#include "platform/base/Log.h"
#include "platform/base/Random.h"
#include "platform/display/desktop/ImageDesktop.h"
#include "platform/display/desktop/ManualTimerSource.h"
#include "platform/plist/PropertyList.h"
#include "platform/saver/BuiltInSavers.h"
#include "platform/saver/ScreenSaverView.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestro {

namespace {

const QString installedBundle = QStringLiteral(TEST_BUNDLE);
const Rect frame{{10, 20}, {300, 200}};

/// Bundles put together by each test, a desk with two screens, and what was logged.
class SaverBundles : public testing::Test {
protected:
    [[nodiscard]] QString bundle() const { return m_folder.filePath(QStringLiteral("My.saver")); }

    void putInfo(const QVariant& info)
    {
        ASSERT_TRUE(writePropertyList(bundle() + QStringLiteral("/Contents/Info.plist"), info));
    }

    void putInfo(const char* principal, const char* executable)
    {
        putInfo(QVariantMap{{QStringLiteral("NSPrincipalClass"), QString::fromUtf8(principal)},
                            {QStringLiteral("CFBundleExecutable"), QString::fromUtf8(executable)}});
    }

    // The library `name` of this test's build stands in the bundle as `as`.
    void putLibrary(const char* name, const char* as)
    {
        const QString file = QString::fromUtf8(name) + QStringLiteral(".so");
        const QString source = file == u"TestSaver.so"
                                   ? installedBundle + QStringLiteral("/Contents/Linux/") + file
                                   : QStringLiteral(TEST_LIBRARIES "/") + file;
        ASSERT_TRUE(QDir().mkpath(bundle() + QStringLiteral("/Contents/Linux")));
        ASSERT_TRUE(
            QFile::copy(source, bundle() + QStringLiteral("/Contents/Linux/") + QString::fromUtf8(as)));
    }

    // Loading must fail with one line that holds `reason` and the bundle's path.
    void expectRefused(const char* reason)
    {
        const auto loaded = SaverBundle::load(bundle());
        ASSERT_FALSE(loaded.isOk()) << reason;
        EXPECT_TRUE(loaded.error().contains(QString::fromUtf8(reason))) << loaded.error().toStdString();
        EXPECT_TRUE(loaded.error().contains(bundle())) << loaded.error().toStdString();
        EXPECT_FALSE(loaded.error().contains(u'\n'));
    }

    // The view of the installed bundle's library by that class name, made on the desk.
    std::shared_ptr<ScreenSaverView> make(const char* className)
    {
        putInfo(className, "TestSaver");
        if (!QDir(bundle() + QStringLiteral("/Contents/Linux")).exists())
            putLibrary("TestSaver", "TestSaver");
        const auto loaded = SaverBundle::load(bundle());
        const auto principal = loaded ? loaded.value().principalClass() : std::nullopt;
        return principal ? principal->initWithFrameIsPreview(frame, true, m_desktop) : nullptr;
    }

    QTemporaryDir m_folder;
    QStringList m_log;
    LogCapture m_capture{[this](const QString& line) { m_log.append(line); }};
    ManualClock m_clock;
    SeededRandom m_random{1};
    ManualTimerSource m_timers{m_clock};
    ImageDesktop m_desktop{{{{0, 0}, {80, 60}}, {{80, 0}, {80, 60}}}, 1.0, m_timers, m_clock, m_random};
};

} // namespace

TEST_F(SaverBundles, load_makesViewsOfThePrincipalClass)
{
    const auto loaded = SaverBundle::load(installedBundle);
    ASSERT_TRUE(loaded.isOk()) << loaded.error().toStdString();
    EXPECT_EQ(loaded.value().path(), installedBundle);
    const auto principal = loaded.value().principalClass();
    ASSERT_TRUE(principal.has_value());
    EXPECT_EQ(principal->name(), QStringLiteral("TestSaverView"));
    EXPECT_TRUE(principal->isScreenSaverView());

    for (const bool isPreview : {false, true}) {
        const auto view = principal->initWithFrameIsPreview(frame, isPreview, m_desktop);
        ASSERT_NE(view, nullptr);
        EXPECT_EQ(view->frame(), frame);
        EXPECT_EQ(view->isPreview(), isPreview);
        EXPECT_TRUE(view->hasConfigureSheet());
        EXPECT_EQ(view->animationTimeInterval(), 2.0) << "one per screen of the desktop it was handed";
    }
    EXPECT_TRUE(m_log.isEmpty());
}

TEST_F(SaverBundles, optionsForThisRun_reachTheLibrary)
{
    const auto principal = SaverBundle::load(installedBundle).value().principalClass();
    principal->setOptionsForThisRun({{QStringLiteral("a"), 1}, {QStringLiteral("b"), 2}});
    EXPECT_EQ(principal->initWithFrameIsPreview(frame, false, m_desktop)->animationTimeInterval(), 2.0 + 2);
    principal->setOptionsForThisRun({});
    EXPECT_TRUE(m_log.isEmpty());
    principal->setOptionsForThisRun({{QStringLiteral("throw"), 1}});
    EXPECT_EQ(m_log.size(), 1);
}

TEST_F(SaverBundles, load_answersTheSameLibrary_whenLoadedAgain)
{
    const auto first = SaverBundle::load(installedBundle);
    const auto second = SaverBundle::load(installedBundle);
    ASSERT_TRUE(first && second);
    const auto one = first.value().principalClass()->initWithFrameIsPreview(frame, false, m_desktop);
    const auto other = second.value().principalClass()->initWithFrameIsPreview(frame, false, m_desktop);
    ASSERT_TRUE(one && other);
    const ScreenSaverView& firstView = *one;
    const ScreenSaverView& secondView = *other;
    EXPECT_EQ(typeid(firstView), typeid(secondView));
    EXPECT_NE(one, other);
}

TEST_F(SaverBundles, load_findsTheLibrary_withAndWithoutItsSuffix)
{
    putInfo("TestSaverView", "Mine");
    putLibrary("TestSaver", "Mine");
    EXPECT_TRUE(SaverBundle::load(bundle()).isOk());
    ASSERT_TRUE(QDir(bundle()).removeRecursively());

    putInfo("TestSaverView", "Other");
    putLibrary("TestSaver", "Other.so");
    EXPECT_TRUE(SaverBundle::load(bundle()).isOk());
}

TEST_F(SaverBundles, pathForResource_isThePath_orEmpty)
{
    const auto loaded = SaverBundle::load(installedBundle);
    ASSERT_TRUE(loaded.isOk());
    const QString expected = installedBundle + QStringLiteral("/Contents/Resources/settings.plist");
    EXPECT_EQ(loaded.value().pathForResource(QStringLiteral("settings"), QStringLiteral("plist")), expected);
    EXPECT_EQ(loaded.value().pathForResource(QStringLiteral("settings.plist"), QString()), expected);
    EXPECT_TRUE(loaded.value().pathForResource(QStringLiteral("settings"), QStringLiteral("pdf")).isEmpty());
    EXPECT_TRUE(loaded.value().pathForResource(QString(), QString()).isEmpty());
}

TEST_F(SaverBundles, load_refuses_whenThereIsNoReadableInfo)
{
    expectRefused("Info.plist");
    putLibrary("TestSaver", "TestSaver");
    expectRefused("Info.plist");
    putInfo(QVariantList{1});
    expectRefused("Info.plist");
}

TEST_F(SaverBundles, load_refuses_whenTheExecutableIsNoPlainFileName)
{
    putLibrary("TestSaver", "TestSaver");
    for (const char* executable : {"", ".", "..", "../Linux/TestSaver", "/tmp/TestSaver", "Linux/"}) {
        putInfo("TestSaverView", executable);
        expectRefused("CFBundleExecutable");
    }
    putInfo(QVariantMap{{QStringLiteral("NSPrincipalClass"), QStringLiteral("TestSaverView")}});
    expectRefused("CFBundleExecutable");
    putInfo(QVariantMap{{QStringLiteral("CFBundleExecutable"), 5}});
    expectRefused("CFBundleExecutable");
}

TEST_F(SaverBundles, load_refuses_whenTheLibraryIsMissing)
{
    putInfo("TestSaverView", "TestSaver");
    expectRefused("missing");
    ASSERT_TRUE(QDir().mkpath(bundle() + QStringLiteral("/Contents/Linux/TestSaver")));
    expectRefused("missing");
}

TEST_F(SaverBundles, load_refuses_whatIsNoSaverLibrary)
{
    for (const char* library : {"PlainLibrary", "OtherInterface", "MissingSymbol"}) {
        putInfo("TestSaverView", library);
        putLibrary(library, library);
        expectRefused("not loaded");
    }
    QFile text(bundle() + QStringLiteral("/Contents/Linux/Text"));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("no library");
    text.close();
    putInfo("TestSaverView", "Text");
    expectRefused("not loaded");
}

TEST_F(SaverBundles, load_namesBothVersions_whenTheLibraryIsForAnotherInterface)
{
    putInfo("TestSaverView", "OldInterface");
    putLibrary("OldInterface", "OldInterface");
    expectRefused("version 0 of the saver interface, this is version 1");
    EXPECT_TRUE(m_log.isEmpty()) << "none of its code may have run";
}

TEST_F(SaverBundles, load_needsNoLibrary_whenThePrincipalClassIsBuiltIn)
{
    for (const QString& name : {hackHostName, pictureFolderName}) {
        putInfo(QVariantMap{{QStringLiteral("NSPrincipalClass"), name}});
        const auto loaded = SaverBundle::load(bundle());
        ASSERT_TRUE(loaded.isOk()) << loaded.error().toStdString();
        EXPECT_EQ(loaded.value().principalClass()->name(), name);
        EXPECT_TRUE(loaded.value().principalClass()->isScreenSaverView());
    }
}

TEST_F(SaverBundles, load_takesTheLibrary_whenItIsNamedBesideABuiltInClass)
{
    putInfo("PictureFolderView", "TestSaver");
    expectRefused("missing");
    putLibrary("TestSaver", "TestSaver");
    const auto loaded = SaverBundle::load(bundle());
    ASSERT_TRUE(loaded.isOk());
    EXPECT_FALSE(loaded.value().principalClass()->isScreenSaverView()) << "the library has no such class";
}

TEST_F(SaverBundles, hackHost_isNoViewAndALine_whenItsInfoNamesNoProgram)
{
    for (const QVariantMap& more : {QVariantMap(), QVariantMap{{QStringLiteral("KestroProgram"), 5}},
                                    QVariantMap{{QStringLiteral("KestroProgram"), QString()}},
                                    QVariantMap{{QStringLiteral("KestroProgram"), QStringLiteral("a")},
                                                {QStringLiteral("KestroArguments"), QVariantList{1}}}}) {
        QVariantMap info{{QStringLiteral("NSPrincipalClass"), hackHostName}};
        info.insert(more);
        putInfo(info);
        m_log.clear();
        const auto principal = SaverBundle::load(bundle()).value().principalClass();
        EXPECT_EQ(principal->initWithFrameIsPreview(frame, false, m_desktop), nullptr);
        ASSERT_EQ(m_log.size(), 1);
        EXPECT_TRUE(m_log.front().contains(bundle())) << m_log.front().toStdString();
    }
}

TEST_F(SaverBundles, load_refuses_whenTheLibraryThrows)
{
    putInfo("TestSaverView", "ThrowingPlugin");
    putLibrary("ThrowingPlugin", "ThrowingPlugin");
    expectRefused("no plug-in today");
}

TEST_F(SaverBundles, principalClass_isNothing_whenInfoNamesNone)
{
    putLibrary("TestSaver", "TestSaver");
    putInfo(QVariantMap{{QStringLiteral("CFBundleExecutable"), QStringLiteral("TestSaver")}});
    const auto unnamed = SaverBundle::load(bundle());
    ASSERT_TRUE(unnamed.isOk());
    EXPECT_FALSE(unnamed.value().principalClass().has_value());
}

TEST_F(SaverBundles, view_isNull_whenTheLibraryDoesNotKnowTheClass)
{
    EXPECT_EQ(make("NoSuchView"), nullptr);
    EXPECT_FALSE(SaverBundle::load(bundle()).value().principalClass()->isScreenSaverView());
    EXPECT_NE(make("TestSaverView"), nullptr);
}

TEST_F(SaverBundles, view_isNullWithALine_whenItsConstructorThrows)
{
    EXPECT_EQ(make("ThrowsAnException"), nullptr);
    ASSERT_EQ(m_log.size(), 1);
    EXPECT_TRUE(m_log.front().contains(QStringLiteral("ThrowsAnException")));
    EXPECT_TRUE(m_log.front().contains(QStringLiteral("no view today"))) << m_log.front().toStdString();
    EXPECT_EQ(make("ThrowsANumber"), nullptr);
    EXPECT_EQ(m_log.size(), 2);
}

TEST_F(SaverBundles, isScreenSaverView_isFalse_whenAskingThrows)
{
    EXPECT_EQ(make("ThrowsWhenAsked"), nullptr);
    EXPECT_FALSE(SaverBundle::load(bundle()).value().principalClass()->isScreenSaverView());
    EXPECT_EQ(m_log.size(), 1);
}

} // namespace kestro
