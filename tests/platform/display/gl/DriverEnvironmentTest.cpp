#include "platform/display/gl/DriverEnvironment.h"

#include "platform/base/ScopedEnvironment.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestro {

namespace {

using Variables = std::vector<std::pair<QByteArray, QByteArray>>;

Variables variablesFor(const GraphicsMachine& machine)
{
    Variables variables;
    for (const auto& [name, value] : driverVariables(machine))
        variables.emplace_back(name, value);
    return variables;
}

void touch(const QString& path)
{
    ASSERT_TRUE(QDir().mkpath(QFileInfo(path).path()));
    ASSERT_TRUE(QFile(path).open(QIODevice::WriteOnly));
}

} // namespace

TEST(DriverEnvironment, variables_askForEgl_whereACardIsDrivenByMesa)
{
    EXPECT_EQ(variablesFor({.hasCard = true}), (Variables{{"QT_XCB_GL_INTEGRATION", "xcb_egl"}}));
}

TEST(DriverEnvironment, variables_keepTheClocksDown_andLeaveGlxWhereNvidiasDriverIs)
{
    EXPECT_EQ(variablesFor({.hasCard = true, .hasNvidiaDriver = true}),
              (Variables{{"CUDA_DISABLE_PERF_BOOST", "1"}}));
}

// A driver of the processor's, which nobody needs, would be loaded with it.
TEST(DriverEnvironment, variables_areNone_whereThereIsNoCard)
{
    EXPECT_EQ(variablesFor({}), Variables());
}

TEST(DriverEnvironment, machine_isKnownByItsDevicesAndItsKernel)
{
    const QTemporaryDir root;
    const auto look = [&] { return graphicsMachine(root.filePath("proc"), root.filePath("dev")); };
    EXPECT_FALSE(look().hasCard);
    EXPECT_FALSE(look().hasNvidiaDriver);
    touch(root.filePath("dev/dri/renderD128"));
    EXPECT_TRUE(look().hasCard);
    EXPECT_FALSE(look().hasNvidiaDriver);
    touch(root.filePath("proc/driver/nvidia/version"));
    EXPECT_TRUE(look().hasNvidiaDriver);
}

TEST(DriverEnvironment, prepareDrivers_leavesWhatThePersonHasSet)
{
    const ScopedEnvironment set("QT_XCB_GL_INTEGRATION", "xcb_glx");
    const ScopedEnvironment unset("CUDA_DISABLE_PERF_BOOST");
    prepareDrivers({.hasCard = true});
    EXPECT_EQ(qgetenv("QT_XCB_GL_INTEGRATION"), "xcb_glx");
    prepareDrivers({.hasCard = true, .hasNvidiaDriver = true});
    EXPECT_EQ(qgetenv("CUDA_DISABLE_PERF_BOOST"), "1");
}

} // namespace kestro
