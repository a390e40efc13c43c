#include "trailers/panel/SaveTrailer.h"

#include "trailers/panel/PanelTest.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

namespace kestro {

namespace {

const QUrl trailer(QStringLiteral("http://h/a/Ada%20one.mov"));

struct TypeCase {
    std::string name;
    QString path;
    QString extension;
    QString answer;

    friend void PrintTo(const TypeCase& one, std::ostream* out) { *out << one.name; }
};

const std::vector<TypeCase> typeCases{
    {"hasIt", QStringLiteral("/h/a.mov"), QStringLiteral("mov"), QStringLiteral("/h/a.mov")},
    {"hasItInCapitals", QStringLiteral("/h/a.MOV"), QStringLiteral("mov"), QStringLiteral("/h/a.MOV")},
    {"hasNone", QStringLiteral("/h/a"), QStringLiteral("mov"), QStringLiteral("/h/a.mov")},
    {"hasAnother", QStringLiteral("/h/a.mp4"), QStringLiteral("mov"), QStringLiteral("/h/a.mp4.mov")},
    {"onlyEndsLikeIt", QStringLiteral("/h/amov"), QStringLiteral("mov"), QStringLiteral("/h/amov.mov")},
    {"noneIsRequired", QStringLiteral("/h/a"), QString(), QStringLiteral("/h/a")},
};

class RequiredFileTypeTest : public testing::TestWithParam<TypeCase> {};

} // namespace

TEST_P(RequiredFileTypeTest, withRequiredFileType_endsInTheExtension)
{
    EXPECT_EQ(withRequiredFileType(GetParam().path, GetParam().extension), GetParam().answer);
}

INSTANTIATE_TEST_SUITE_P(Rule, RequiredFileTypeTest, testing::ValuesIn(typeCases),
                         [](const auto& test) { return test.param.name; });

class SaveTrailerTest : public TrailerListFixture {
protected:
    // Types `name` into the save panel and accepts it.
    void typeName(const QString& name)
    {
        answerModal([this, name](QWidget& window) {
            auto& savePanel = dynamic_cast<QFileDialog&>(window);
            m_proposed = savePanel.selectedFiles().value(0);
            m_filters = savePanel.nameFilters();
            savePanel.setDirectory(m_home.path());
            savePanel.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(name);
            QMetaObject::invokeMethod(&savePanel, "accept");
        });
    }
    void touch(const char* name) const
    {
        QFile file(m_home.filePath(QLatin1String(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }

    QString m_proposed;
    QStringList m_filters;
};

TEST_F(SaveTrailerTest, askWhereToSave_proposesTheNameAndRequiresTheExtension)
{
    typeName(QStringLiteral("mine"));
    EXPECT_EQ(askWhereToSave(trailer, nullptr), m_home.filePath(QStringLiteral("mine.mov")));
    EXPECT_EQ(QFileInfo(m_proposed).fileName(), QStringLiteral("Ada one.mov"));
    EXPECT_EQ(m_filters, QStringList(QStringLiteral("*.mov")));
}

TEST_F(SaveTrailerTest, askWhereToSave_takesAnyName_whenTheURLHasNoExtension)
{
    typeName(QStringLiteral("mine"));
    EXPECT_EQ(askWhereToSave(QUrl(QStringLiteral("http://h/a/ada")), nullptr),
              m_home.filePath(QStringLiteral("mine")));
}

TEST_F(SaveTrailerTest, askWhereToSave_isEmpty_whenItIsGivenUp)
{
    answerModal([](QWidget& window) { dynamic_cast<QFileDialog&>(window).reject(); });
    EXPECT_TRUE(askWhereToSave(trailer, nullptr).isEmpty());
}

TEST_F(SaveTrailerTest, askWhereToSave_letsFoldersBeMade)
{
    bool mayMake = false;
    answerModal([&](QWidget& window) {
        auto& savePanel = dynamic_cast<QFileDialog&>(window);
        mayMake = !savePanel.testOption(QFileDialog::ReadOnly);
        savePanel.reject();
    });
    EXPECT_TRUE(askWhereToSave(trailer, nullptr).isEmpty());
    EXPECT_TRUE(mayMake);
}

TEST_F(SaveTrailerTest, askWhereToSave_asksBeforeItReplaces_whenTheExtensionMakesItAFileThatIsThere)
{
    touch("mine.mp4.mov");
    const auto answer = [&](QMessageBox::StandardButton button) {
        typeName(QStringLiteral("mine.mp4"));
        answerModal([button](QWidget&) {
            answerModal(
                [button](QWidget& window) { dynamic_cast<QMessageBox&>(window).button(button)->click(); });
        });
        return askWhereToSave(trailer, nullptr);
    };
    EXPECT_TRUE(answer(QMessageBox::No).isEmpty());
    EXPECT_EQ(answer(QMessageBox::Yes), m_home.filePath(QStringLiteral("mine.mp4.mov")));
}

TEST_F(SaveTrailerTest, askWhereToSave_beginsInTheFolderOfTheLastTime)
{
    typeName(QStringLiteral("one"));
    ASSERT_FALSE(askWhereToSave(trailer, nullptr).isEmpty());
    typeName(QStringLiteral("two"));
    ASSERT_FALSE(askWhereToSave(trailer, nullptr).isEmpty());
    EXPECT_EQ(QFileInfo(m_proposed).path(), m_home.path());
}

} // namespace kestro
