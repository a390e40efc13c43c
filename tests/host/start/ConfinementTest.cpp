#include "host/start/Confinement.h"

#include "platform/base/Bounds.h"

#include <QByteArray>
#include <QFile>

#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <linux/capability.h>
#include <sys/resource.h>
#include <unistd.h>

namespace kestro {

namespace {

/// In a process of its own: nothing of it can be taken back.
[[noreturn]] void check(void (*give)(), const std::function<bool()>& isSo)
{
    give();
    std::_Exit(isSo() ? EXIT_SUCCESS : EXIT_FAILURE);
}

QByteArray contentOf(const char* path)
{
    QFile file(QString::fromLatin1(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// What the kernel says of this process under that name.
QByteArray status(const QByteArray& name)
{
    const QByteArray all = contentOf("/proc/self/status");
    const auto begin = all.indexOf('\n' + name + ":\t") + name.size() + 3;
    return all.mid(begin, all.indexOf('\n', begin) - begin);
}

quint64 rights(const char* kind)
{
    return status(kind).toULongLong(nullptr, 16);
}

/// What root needs for the files of others.
constexpr quint64 fileRights = quint64{1} << CAP_CHOWN | quint64{1} << CAP_DAC_OVERRIDE |
                               quint64{1} << CAP_DAC_READ_SEARCH | quint64{1} << CAP_FOWNER |
                               quint64{1} << CAP_FSETID;

constexpr auto isSo = EXIT_SUCCESS;

} // namespace

TEST(Confinement, process_getsNoNewRights)
{
    EXPECT_EXIT(check(confineProcess, [] { return status("NoNewPrivs") == "1"; }),
                testing::ExitedWithCode(isSo), "");
}

TEST(Confinement, process_keepsOfItsRights_thoseAboutFilesAlone)
{
    const quint64 kept = rights("CapEff") & fileRights;
    const auto areKept = [kept] {
        return rights("CapEff") == kept && rights("CapPrm") == kept && rights("CapInh") == 0 &&
               rights("CapAmb") == 0;
    };
    EXPECT_EXIT(check(confineProcess, areKept), testing::ExitedWithCode(isSo), "");
}

TEST(Confinement, process_writesNoCore)
{
    const auto isNone = [] {
        rlimit limit{1, 1};
        return getrlimit(RLIMIT_CORE, &limit) == 0 && limit.rlim_cur == 0 && limit.rlim_max == 0;
    };
    EXPECT_EXIT(check(confineProcess, isNone), testing::ExitedWithCode(isSo), "");
}

TEST(Confinement, process_isTheFirstToGo_whenMemoryRunsOut)
{
    const auto isFirst = [] {
        return contentOf("/proc/self/oom_score_adj").trimmed() == QByteArray::number(Bounds::oomScore);
    };
    EXPECT_EXIT(check(beFirstToGo, isFirst), testing::ExitedWithCode(isSo), "");
}

} // namespace kestro
