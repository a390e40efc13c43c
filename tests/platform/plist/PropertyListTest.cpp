#include "platform/plist/PropertyList.h"

#include "platform/plist/PropertyListTestFiles.h"

#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

namespace kestro {

namespace {

class PropertyList : public testing::Test {
protected:
    [[nodiscard]] QString in(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }

    // Runs a script that finds the path of `file` in its first argument; what it prints.
    static QByteArray python(const char* script, const QString& file)
    {
        QProcess process;
        process.start(QStringLiteral("/usr/bin/python3"),
                      {QStringLiteral("-c"), QString::fromUtf8(script), file});
        EXPECT_TRUE(process.waitForFinished()) << process.errorString().toStdString();
        EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
        return process.readAllStandardOutput();
    }

    QTemporaryDir m_folder;
};

} // namespace

TEST_F(PropertyList, read_understandsBothForms_asPythonWritesThem)
{
    const QVariantMap expected{
        {QStringLiteral("Ver"), QStringLiteral("5")},
        {QStringLiteral("FileList"), QVariantList{QStringLiteral("auto://LatestTrailers/6/480")}},
        {QStringLiteral("Scale"), 0.5},
    };
    for (const char* form : {"FMT_XML", "FMT_BINARY"}) {
        const QByteArray script =
            QByteArray("import plistlib, sys\n"
                       "root = {'Ver': '5', 'FileList': ['auto://LatestTrailers/6/480'], 'Scale': 0.5}\n"
                       "plistlib.dump(root, open(sys.argv[1], 'wb'), fmt=plistlib.") +
            form + ")";
        python(script.constData(), in("file"));
        const auto found = readPropertyListDictionary(in("file"));
        ASSERT_TRUE(found.has_value()) << form;
        EXPECT_EQ(*found, expected) << form;
    }
}

TEST_F(PropertyList, write_isUnderstood_byPython)
{
    const QVariantMap root{
        {QStringLiteral("text"), QStringLiteral("a & <b>\r\n映画")},
        {QStringLiteral("number"), qlonglong(-5)},
        {QStringLiteral("real"), 0.1},
        {QStringLiteral("flag"), true},
        {QStringLiteral("data"), QByteArray("\0\xff", 2)},
        {QStringLiteral("list"), QVariantList{QVariantMap()}},
    };
    ASSERT_TRUE(writePropertyList(in("file"), root));
    EXPECT_EQ(python("import plistlib, sys\n"
                     "root = plistlib.load(open(sys.argv[1], 'rb'), fmt=plistlib.FMT_XML)\n"
                     "print(ascii(sorted(root.items())))",
                     in("file"))
                  .trimmed(),
              "[('data', b'\\x00\\xff'), ('flag', True), ('list', [{}]), ('number', -5), ('real', 0.1), "
              "('text', 'a & <b>\\r\\n\\u6620\\u753b')]");
}

TEST_F(PropertyList, read_answersNothing_whenTheFileHoldsNeitherForm)
{
    for (const QByteArray& bytes :
         {QByteArray(), QByteArray("bplist"), QByteArray("bplist00"), QByteArray("bplist15 and more"),
          QByteArray("{ Ver = 5; }"), QByteArray(1000, '\0')}) {
        putFile(in("file"), bytes);
        EXPECT_FALSE(readPropertyList(in("file")).has_value()) << bytes.left(20).toHex().constData();
    }
    EXPECT_FALSE(readPropertyList(in("missing")).has_value());
}

TEST_F(PropertyList, readDictionary_answersNothing_whenTheRootIsSomethingElse)
{
    for (const char* root : {"<array/>", "<string>a</string>", "<true/>"}) {
        putFile(in("file"), QByteArray("<plist>") + root + "</plist>");
        EXPECT_TRUE(readPropertyList(in("file")).has_value()) << root;
        EXPECT_FALSE(readPropertyListDictionary(in("file")).has_value()) << root;
    }
    putFile(in("file"), "<plist><dict/></plist>");
    EXPECT_EQ(readPropertyListDictionary(in("file")), QVariantMap());
}

TEST_F(PropertyList, write_leavesTheOldFile_whenAValueCannotBeHeld)
{
    putFile(in("file"), "old");
    EXPECT_FALSE(writePropertyList(in("file"), QVariantMap{{QStringLiteral("a"), QVariant()}}));
    EXPECT_EQ(bytesOf(in("file")), "old");
    EXPECT_FALSE(writePropertyList(in("folder/file"), QVariant()));
    EXPECT_FALSE(QFileInfo::exists(in("folder")));
}

TEST_F(PropertyList, write_leavesTheOldFile_whenItWouldBeTooLargeToRead)
{
    putFile(in("file"), "old");
    EXPECT_FALSE(writePropertyList(in("file"), QString(64 * 1024 * 1024, u'a')));
    EXPECT_EQ(bytesOf(in("file")), "old");
}

TEST_F(PropertyList, write_isReadBackAsItWas)
{
    const QVariantMap root{
        {QStringLiteral("a"), QVariantList{QStringLiteral("b"), qlonglong(1), 2.5, false}}};
    ASSERT_TRUE(writePropertyList(in("file"), root));
    EXPECT_EQ(readPropertyList(in("file")), QVariant(root));
}

} // namespace kestro
