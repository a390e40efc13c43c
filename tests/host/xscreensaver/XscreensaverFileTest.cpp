#include "host/xscreensaver/XscreensaverFile.h"

#include <gtest/gtest.h>

namespace kestro {

namespace {

const QByteArray command = QByteArrayLiteral("kestro --root");

QByteArray added(const QByteArray& text)
{
    XscreensaverFile file(text);
    file.add(command);
    return file.text();
}

QByteArray removed(const QByteArray& text)
{
    XscreensaverFile file(text);
    file.remove();
    return file.text();
}

/// A file as xscreensaver writes it, with these entries in its list.
QByteArray fileWith(const QByteArray& entries, const QByteArray& chosen = "1")
{
    return "# XScreenSaver Preferences File\n\ntimeout:\t0:10:00\nselected:\t" + chosen +
           "\n\nprograms:\t\t\t      \\\n" + entries + "\n\npointerHysteresis:\t10\n";
}

const QByteArray others = QByteArrayLiteral("\t\t\tmaze --root\t\t    \\n\\\n"
                                            "- GL: \t\t\tpipes --root\t\t    \\n\\\n");
const QByteArray ours = QByteArrayLiteral("  \"Kestro\"  kestro --root \\n\\\n");

struct Entry {
    const char* line;
    bool isOurs;
};

class XscreensaverEntries : public testing::TestWithParam<Entry> {};

} // namespace

TEST(XscreensaverFile, add_putsTheEntryLast_whenThereIsAList)
{
    EXPECT_EQ(added(fileWith(others)), fileWith(others + ours));
    EXPECT_EQ(added(fileWith({})), fileWith(ours));
}

TEST(XscreensaverFile, remove_givesTheFileBack_whenTheEntryWasAdded)
{
    EXPECT_EQ(removed(fileWith(others + ours)), fileWith(others));
}

TEST(XscreensaverFile, addAndRemove_changeNothing_whenThereIsNothingToDo)
{
    EXPECT_EQ(added(fileWith(ours + others)), fileWith(ours + others));
    EXPECT_EQ(removed(fileWith(others)), fileWith(others));
    EXPECT_EQ(removed({}), QByteArray());
}

TEST(XscreensaverFile, isListed_tellsOfAnEntryThatIsOn)
{
    EXPECT_FALSE(XscreensaverFile({}).isListed());
    EXPECT_FALSE(XscreensaverFile(fileWith(others)).isListed());
    EXPECT_FALSE(XscreensaverFile(fileWith("- " + ours.trimmed() + "\n")).isListed());
    EXPECT_TRUE(XscreensaverFile(fileWith(others + ours)).isListed());
    EXPECT_TRUE(XscreensaverFile(fileWith("- " + ours.trimmed() + "\n" + ours)).isListed());
}

TEST(XscreensaverFile, add_switchesTheEntryOn_whenItIsOff)
{
    const QByteArray off = "- GL:  \"My movies\" /opt/bin/kestro --root --mode fly \\n\\\n";
    const QByteArray on = "  GL:  \"My movies\" /opt/bin/kestro --root --mode fly \\n\\\n";
    EXPECT_EQ(added(fileWith(off + others)), fileWith(on + others));
    EXPECT_EQ(added(fileWith(off + ours)), fileWith(off + ours));
}

TEST(XscreensaverFile, switchOff_putsADashBeforeTheEntry_whereverItsTextBegins)
{
    const auto switchedOff = [](const QByteArray& text) {
        XscreensaverFile file(text);
        file.switchOff(command);
        return file.text();
    };
    EXPECT_EQ(switchedOff(fileWith(others + ours)), fileWith(others + "- \"Kestro\"  kestro --root \\n\\\n"));
    EXPECT_EQ(switchedOff(fileWith(others)), fileWith(others + "- \"Kestro\"  kestro --root \\n\\\n"));
    EXPECT_EQ(switchedOff("programs:\\\nkestro --root \\n\n"), "programs:\\\n- kestro --root \\n\n");
    EXPECT_EQ(switchedOff("programs:\\\n- kestro --root \\n\n"), "programs:\\\n- kestro --root \\n\n");
}

TEST(XscreensaverFile, add_makesAList_whenThereIsNone)
{
    EXPECT_EQ(added({}), "programs:\t\\\n" + ours + "\n");
    EXPECT_EQ(added("timeout: 1\n# programs: maze\nmode: one"),
              "timeout: 1\n# programs: maze\nmode: one\nprograms:\t\\\n" + ours + "\n");
}

TEST(XscreensaverFile, add_separatesTheEntries_whenTheListWasEditedByHand)
{
    EXPECT_EQ(added("programs: \\\n maze --root\nlock: False\n"),
              "programs: \\\n maze --root \\n\\\n" + ours + "\nlock: False\n");
    EXPECT_EQ(added("programs: \\\n maze --root \\n\\\n"),
              "programs: \\\n maze --root \\n\\\n" + ours + "\n");
    EXPECT_EQ(added("Programs: maze --root\nlock: False\n"),
              "Programs: maze --root \\n\\\n" + ours + "\nlock: False\n");
    EXPECT_EQ(added("programs:"), "programs:\\\n" + ours + "\n");
}

TEST(XscreensaverFile, add_endsTheEntryBefore_whenThatGoesOnWithoutAnEnd)
{
    EXPECT_EQ(added("programs:\\\n\tmaze\\\n\n"), "programs:\\\n\tmaze\\\n\\n\\\n" + ours + "\n");
}

TEST(XscreensaverFile, add_beginsTheListAnew_whenTheLastLineGoesOn)
{
    EXPECT_EQ(added("timeout:\t1\\\n"), "timeout:\t1\\\n\nprograms:\t\\\n" + ours + "\n");
    EXPECT_EQ(added("timeout:\t1\\"), "timeout:\t1\\\n\nprograms:\t\\\n" + ours + "\n");
}

TEST(XscreensaverFile, add_switchesTheEntryOn_whenItsDashIsNotInItsFirstLine)
{
    EXPECT_EQ(added(fileWith("\\\n- kestro --root \\n\\\n")), fileWith("\\\n  kestro --root \\n\\\n"));
}

TEST(XscreensaverFile, remove_endsTheList_whenTheEntryDid)
{
    EXPECT_EQ(removed("programs: \\\n maze --root \\n\\\n kestro --root\nlock: False\n"),
              QByteArray("programs: \\\n maze --root \\n\\\n\nlock: False\n"));
}

TEST(XscreensaverFile, remove_takesAllLinesOfAnEntry_whenItIsLong)
{
    const QByteArray entry = "  \"Kestro\" kestro --root \\\n --mode fly \\n\\\n";
    EXPECT_EQ(removed(fileWith(others + entry + others)), fileWith(others + others));
}

TEST(XscreensaverFile, remove_keepsTheChosenSaver_whenEntriesMoveUp)
{
    EXPECT_EQ(removed(fileWith(ours + others, "2")), fileWith(others, "1"));
    EXPECT_EQ(removed(fileWith(others + ours, "1")), fileWith(others, "1"));
    EXPECT_EQ(removed(fileWith(ours + others + ours, "2")), fileWith(others, "1"));
    EXPECT_EQ(removed(fileWith(ours + others, "none")), fileWith(others, "none"));
}

TEST_P(XscreensaverEntries, remove_takesWhatRunsKestro_andNothingElse)
{
    const QByteArray entry = QByteArray(GetParam().line) + "\\n\\\n";
    EXPECT_EQ(removed(fileWith(others + entry)), fileWith(GetParam().isOurs ? others : others + entry));
}

INSTANTIATE_TEST_SUITE_P(
    Forms, XscreensaverEntries,
    testing::Values(Entry{"kestro --root ", true}, Entry{"-kestro --root ", true},
                    Entry{"\t/usr/bin/kestro -root ", true}, Entry{"GL: '/home/a b/kestro' --root ", true},
                    Entry{"\"Any name\"kestro\t--root ", true}, Entry{"kestro", true},
                    Entry{"\"Kestro\" maze --root ", false}, Entry{"kestros --root ", false},
                    Entry{"my-kestro --root ", false}, Entry{"/kestro/maze --root ", false},
                    Entry{"maze --kestro --root kestro ", false}, Entry{"-: kestro --root ", false}));

} // namespace kestro
