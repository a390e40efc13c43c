#include "settings/EntryMarks.h"

#include "platform/base/ConfigurationFile.h"
#include "platform/base/Log.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestro {

namespace {

const EntryMark starred{true, {}};
const EntryMark byNight{false, {.kind = PlayTime::Kind::Night}};
const EntryMark starredByNight{true, {.kind = PlayTime::Kind::Night}};

QUrl movie(const char* name)
{
    return QUrl(QStringLiteral("https://m.example/") + QString::fromUtf8(name));
}

EntryMarks marksOf(const QByteArray& text)
{
    return {ConfigurationFile(text, QStringLiteral("conf")), {}};
}

class EntryMarksFile : public testing::Test {
protected:
    EntryMarks with(const QByteArray& text)
    {
        QFile file(m_path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
        file.close();
        return {ConfigurationFile::at(m_path), m_path};
    }
    [[nodiscard]] QByteArray text() const { return ConfigurationFile::at(m_path).text(); }

    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(QStringLiteral("kestro.conf"));
};

} // namespace

TEST(EntryMarks, lines_sayWhatEntriesAre)
{
    const auto marks =
        marksOf("[marks]\n1=star night https://m.example/a.mp4\n2 = star\tfile:///b%20c.mov\n");
    EXPECT_EQ(marks.of(movie("a.mp4")), starredByNight);
    EXPECT_EQ(marks.of(QUrl(QStringLiteral("file:///b%20c.mov"))), starred);
    EXPECT_EQ(marks.of(movie("b.mp4")), EntryMark());
}

TEST(EntryMarks, folder_saysItForItself)
{
    const auto marks = marksOf("[marks]\n1=night folder:///f\n");
    EXPECT_EQ(marks.of(QUrl(QStringLiteral("folder:///f"))), EntryMark());
    EXPECT_EQ(marks.of(QUrl(QStringLiteral("folder:///f?star=1"))), starred);
}

TEST(EntryMarks, line_isTold_whereItIsNotUnderstood)
{
    for (const char* value : {"moon https://m.example/a.mp4", "star", "star a.mp4", ""}) {
        QStringList said;
        const LogCapture capture([&](const QString& line) { said.append(line); });
        EXPECT_EQ(marksOf(QByteArray("[marks]\n1=") + value + "\n").of(movie("a.mp4")), EntryMark());
        EXPECT_EQ(said, QStringList(QStringLiteral("conf, line 2: \"%1\" is no \"star\", time of day or both "
                                                   "before a URL.")
                                        .arg(QLatin1String(value))));
    }
}

TEST_F(EntryMarksFile, change_isWrittenAndReadBack)
{
    auto marks = with("");
    ASSERT_TRUE(marks.change({{movie("a.mp4"), starredByNight}, {movie("b.mp4"), starred}}).isOk());
    EXPECT_EQ(text(), "[marks]\n1=star night https://m.example/a.mp4\n2=star https://m.example/b.mp4\n");
    EXPECT_EQ(marks.of(movie("a.mp4")), starredByNight);
    EXPECT_EQ(EntryMarks(ConfigurationFile::at(m_path), m_path).of(movie("b.mp4")), starred);
}

TEST_F(EntryMarksFile, change_leavesEveryOtherLineAsItIs)
{
    const LogCapture capture([](const QString&) {});
    auto marks =
        with("# mine\n[marks]\n 7 =  star https://m.example/other.mp4\nodd=moon x\n"
             "8=night https://m.example/a.mp4\n9=day https://m.example/gone.mp4\n; end\n[idle]\nafter=3");
    ASSERT_TRUE(
        marks.change({{movie("a.mp4"), starred}, {movie("gone.mp4"), {}}, {movie("c.mp4"), byNight}}).isOk());
    EXPECT_EQ(text(),
              "# mine\n[marks]\n 7 =  star https://m.example/other.mp4\nodd=moon x\n"
              "8=star https://m.example/a.mp4\n10=night https://m.example/c.mp4\n; end\n[idle]\nafter=3\n");
}

TEST_F(EntryMarksFile, file_isNotTouched_whereNothingChanges)
{
    auto marks = with("[marks]\n1=star  https://m.example/a.mp4");
    ASSERT_TRUE(marks
                    .change({{movie("a.mp4"), starred},
                             {movie("b.mp4"), {}},
                             {QUrl(QStringLiteral("folder:///f")), starred}})
                    .isOk());
    EXPECT_EQ(text(), "[marks]\n1=star  https://m.example/a.mp4");
}

TEST_F(EntryMarksFile, entryThatStandsThereTwice_hasNoLineLeft_whenNothingIsSaidOfItAnyMore)
{
    auto marks = with("[marks]\n1=star https://m.example/a.mp4\n2=night https://m.example/a.mp4\n");
    EXPECT_EQ(marks.of(movie("a.mp4")), byNight);
    ASSERT_TRUE(marks.change({{movie("a.mp4"), {}}}).isOk());
    EXPECT_EQ(text(), "[marks]\n");
}

TEST_F(EntryMarksFile, change_countsInThisProcess_thoughItCannotBeWritten)
{
    const LogCapture capture([](const QString&) {});
    EntryMarks marks(ConfigurationFile({}, m_path), m_folder.path());
    EXPECT_FALSE(marks.change({{movie("a.mp4"), starred}}).isOk());
    EXPECT_EQ(marks.of(movie("a.mp4")), starred);
}

} // namespace kestro
