#include "trailers/panel/PreviewWindow.h"
#include "windows/AllWindows.h"

#include <QAbstractSpinBox>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QTableView>
#include <QToolButton>

#include <algorithm>
#include <gtest/gtest.h>

namespace kestro {

namespace {

/// All windows in each language, one after the other.
class WindowsTest : public testing::TestWithParam<QString> {
protected:
    AllWindows all{GetParam()};
};

/// Where a widget is, for who reads of a test that failed.
std::string placeOf(const QWidget& widget)
{
    const QString window = QString::fromLatin1(widget.window()->metaObject()->className());
    const QString name = widget.objectName().isEmpty() ? QString::fromLatin1(widget.metaObject()->className())
                                                       : widget.objectName();
    return qPrintable(window + u'/' + name);
}

/// Whether the keys can come to a widget by itself, not by one that it stands for.
bool takesFocus(const QWidget& widget)
{
    return widget.focusPolicy() != Qt::NoFocus && widget.focusProxy() == nullptr;
}

template <typename Control>
bool is(const QWidget& widget)
{
    return qobject_cast<const Control*>(&widget) != nullptr;
}

/// What a control is to whoever cannot see it; none where nobody has thought about its kind.
std::optional<QAccessible::Role> roleOf(const QWidget& widget)
{
    if (is<QCheckBox>(widget)) return QAccessible::CheckBox;
    if (is<QRadioButton>(widget)) return QAccessible::RadioButton;
    if (is<QPushButton>(widget) || is<QToolButton>(widget)) return QAccessible::Button;
    if (is<QLineEdit>(widget) || is<QPlainTextEdit>(widget)) return QAccessible::EditableText;
    if (is<QAbstractSpinBox>(widget)) return QAccessible::SpinBox;
    if (is<QSlider>(widget)) return QAccessible::Slider;
    if (is<QComboBox>(widget)) return QAccessible::ComboBox;
    if (is<QTableView>(widget)) return QAccessible::Table;
    return {};
}

QString nameOf(QAccessibleInterface& spoken)
{
    return spoken.text(QAccessible::Name).trimmed();
}

/// The letters that Alt takes to one of `texts`, in capitals.
QStringList letters(const QString& text)
{
    const QKeySequence key = QKeySequence::mnemonic(text);
    return key.isEmpty() ? QStringList() : QStringList{key.toString().section(u'+', -1)};
}

/// The entries of the menu that the right button of the mouse opens over a table; none where it opens none.
QList<QAction*> menuOf(QTableView& table)
{
    if (table.contextMenuPolicy() == Qt::ActionsContextMenu) return table.actions();
    QContextMenuEvent wish(QContextMenuEvent::Mouse, {1, 1}, table.viewport()->mapToGlobal(QPoint(1, 1)));
    QApplication::sendEvent(table.viewport(), &wish);
    const auto* const menu = table.findChild<QMenu*>();
    return menu != nullptr ? menu->actions() : QList<QAction*>();
}

/// The text of a control, or of a label or a group that stands for one, that may have such a letter.
QString labelOf(const QWidget& widget)
{
    if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget)) return button->text();
    if (const auto* const group = qobject_cast<const QGroupBox*>(&widget)) return group->title();
    const auto* const label = qobject_cast<const QLabel*>(&widget);
    return label != nullptr && label->buddy() != nullptr ? label->text() : QString();
}

/// The size that a control needs for its text to be seen whole; none where it has none, or shows as much of
/// it as there is room for.
QSize roomForText(const QWidget& widget)
{
    if (widget.sizePolicy().horizontalPolicy() == QSizePolicy::Ignored) return {};
    if (const auto* const label = qobject_cast<const QLabel*>(&widget))
        return label->wordWrap() ? QSize(1, label->heightForWidth(label->width())) : label->sizeHint();
    if (const auto* const button = qobject_cast<const QPushButton*>(&widget)) {
        const int text =
            button->fontMetrics().horizontalAdvance(button->text()); // it may be narrower than usual
        return {std::min(button->sizeHint().width(), text + button->height() / 2),
                button->sizeHint().height()};
    }
    if (is<QGroupBox>(widget)) return widget.minimumSizeHint();
    const bool hasText = is<QCheckBox>(widget) || is<QRadioButton>(widget) || is<QComboBox>(widget) ||
                         is<QAbstractSpinBox>(widget);
    return hasText ? widget.sizeHint() : QSize();
}

/// The size that a window needs at least. The sheet has its options below its playlist where they have no
/// room beside it.
QSize leastSizeOf(const QWidget& window)
{
    if (!is<ConfigSheet>(window)) return window.minimumSizeHint();
    const auto& playlist = *window.findChild<QWidget*>(QStringLiteral("playlistGroup"));
    const auto& area = *window.findChild<QScrollArea*>(QStringLiteral("optionsArea"));
    const QSize options = area.widget()->minimumSizeHint() + area.verticalScrollBar()->sizeHint();
    const bool isBeside = area.x() > playlist.geometry().right();
    const QMargins around = window.layout()->contentsMargins();
    return {std::max(options.width(), playlist.minimumSizeHint().width()) + around.left() + around.right(),
            window.minimumSizeHint().height() + (isBeside ? area.minimumSizeHint().height() : 0)};
}

/// The words of a text, without its letter for Alt, dots and colons.
QStringList wordsOf(QString text)
{
    return text.remove(u'&').remove(u'…').remove(u':').remove(u'.').remove(u',').split(u' ',
                                                                                       Qt::SkipEmptyParts);
}

bool isCapital(const QString& word)
{
    return !word[0].isLower();
}

/// Whether a text has the capitals of a title: all of its words but the small ones have one.
bool isTitle(const QString& text)
{
    static const QSet<QString> small{QStringLiteral("a"),  QStringLiteral("the"),  QStringLiteral("by"),
                                     QStringLiteral("to"), QStringLiteral("from"), QStringLiteral("of")};
    const QStringList words = wordsOf(text);
    return !words.isEmpty() && isCapital(words.first()) &&
           std::all_of(words.begin(), words.end(),
                       [](const QString& word) { return isCapital(word) || small.contains(word); });
}

/// Whether a text has the capitals of a sentence: no word but the first has one, names apart.
bool isSentence(const QString& text)
{
    static const QSet<QString> names{QStringLiteral("URL"), QStringLiteral("Flash"), QStringLiteral("Kestro"),
                                     QStringLiteral("XScreenSaver"), QStringLiteral("XScreenSaver's")};
    const QStringList words = wordsOf(text);
    return std::all_of(words.begin(), words.end(), [&words](const QString& word) {
        return &word == &words.first() || !isCapital(word) || names.contains(word) || !word[0].isLetter();
    });
}

} // namespace

TEST(CapitalsTest, buttonsAndTitles_haveThoseOfTitles)
{
    const AllWindows all(QStringLiteral("en"));
    int texts = 0;
    for (const QWidget* const window : all.windows()) {
        for (const QWidget* const widget : AllWindows::seenIn(*window)) {
            const bool isTitled = is<QPushButton>(*widget) || is<QGroupBox>(*widget);
            const QString text = labelOf(*widget);
            if (!isTitled || text.isEmpty()) continue;
            ++texts;
            EXPECT_TRUE(isTitle(text)) << placeOf(*widget) << " " << qPrintable(text);
        }
        QStringList titles{window->windowTitle()};
        for (const QAction* const action : window->findChildren<QAction*>())
            titles.append(action->text());
        titles.removeAll(QString());
        for (const QString& text : titles)
            EXPECT_TRUE(isTitle(text)) << qPrintable(text);
    }
    EXPECT_GT(texts, 20);
}

TEST(CapitalsTest, otherControlsAndLabels_haveThoseOfSentences)
{
    const AllWindows all(QStringLiteral("en"));
    int texts = 0;
    for (const QWidget* const window : all.windows())
        for (const QWidget* const widget : AllWindows::seenIn(*window)) {
            const auto* const label = qobject_cast<const QLabel*>(widget);
            const bool isChoice = is<QCheckBox>(*widget) || is<QRadioButton>(*widget);
            if (label == nullptr && !isChoice) continue;
            ++texts;
            const QString text = label != nullptr ? label->text() : labelOf(*widget);
            for (const QString& sentence : text.split(QStringLiteral(". ")))
                EXPECT_TRUE(isSentence(sentence)) << placeOf(*widget) << " " << qPrintable(sentence);
            EXPECT_TRUE(!isChoice || isCapital(wordsOf(text).first())) << placeOf(*widget);
        }
    EXPECT_GT(texts, 20);
}

TEST(CapitalsTest, itemsOfPopUps_beginWithOne)
{
    const AllWindows all(QStringLiteral("en"));
    int items = 0;
    for (const QWidget* const window : all.windows())
        for (const QComboBox* const popup : window->findChildren<QComboBox*>())
            for (int item = 0; item < popup->count(); ++item, ++items)
                EXPECT_TRUE(isCapital(popup->itemText(item))) << qPrintable(popup->itemText(item));
    EXPECT_GE(items, 6);
}

TEST_P(WindowsTest, whatTakesTheKeys_hasANameAndARole)
{
    int stops = 0;
    for (const QWidget* const window : all.windows())
        for (QWidget* const widget : AllWindows::seenIn(*window)) {
            if (!takesFocus(*widget)) continue;
            ++stops;
            QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(widget);
            ASSERT_NE(spoken, nullptr) << placeOf(*widget);
            EXPECT_FALSE(nameOf(*spoken).isEmpty()) << placeOf(*widget);
            EXPECT_EQ(spoken->role(), roleOf(*widget)) << placeOf(*widget);
        }
    EXPECT_GT(stops, 50);
}

TEST_P(WindowsTest, cells_haveNames)
{
    int cells = 0;
    for (const QWidget* const window : all.windows())
        for (const QTableView* const table : window->findChildren<QTableView*>()) {
            QAccessibleTableInterface* const spoken =
                QAccessible::queryAccessibleInterface(const_cast<QTableView*>(table))->tableInterface();
            for (int row = 0; row < spoken->rowCount(); ++row)
                for (int column = 0; column < spoken->columnCount(); ++column, ++cells)
                    EXPECT_FALSE(nameOf(*spoken->cellAt(row, column)).isEmpty())
                        << placeOf(*table) << " " << row << ", " << column;
        }
    EXPECT_GT(cells, 8);
}

TEST_P(WindowsTest, radioButtons_standInGroupsOfTheirOwnWithNames)
{
    QMap<QString, QSet<QButtonGroup*>> groups;
    for (const QWidget* const window : all.windows())
        for (QRadioButton* const button : window->findChildren<QRadioButton*>()) {
            QAccessibleInterface* const group = QAccessible::queryAccessibleInterface(button->parentWidget());
            EXPECT_EQ(group->role(), QAccessible::Grouping) << placeOf(*button);
            EXPECT_FALSE(nameOf(*group).isEmpty()) << placeOf(*button);
            groups[nameOf(*group)].insert(button->group());
        }
    EXPECT_EQ(groups.size(), 3);
    for (const QSet<QButtonGroup*>& together : groups)
        EXPECT_EQ(together.size(), 1);
}

TEST_P(WindowsTest, altLetters_areEachOfOneControl)
{
    int found = 0;
    for (const QWidget* const window : all.windows()) {
        QMap<QString, QString> owners;
        for (const QWidget* const widget : AllWindows::seenIn(*window))
            for (const QString& letter : letters(labelOf(*widget))) {
                ++found;
                EXPECT_FALSE(owners.contains(letter)) << placeOf(*widget) << ": " << qPrintable(letter)
                                                      << " is of " << qPrintable(owners[letter]);
                owners.insert(letter, labelOf(*widget));
            }
    }
    EXPECT_GT(found, 40);
}

TEST_P(WindowsTest, letters_areEachOfOneEntryOfAMenu)
{
    int menus = 0;
    for (const QWidget* const window : all.windows())
        for (QTableView* const table : window->findChildren<QTableView*>()) {
            QStringList found;
            for (const QAction* const entry : menuOf(*table))
                found += letters(entry->text());
            menus += found.isEmpty() ? 0 : 1;
            EXPECT_EQ(found.removeDuplicates(), 0) << placeOf(*table);
        }
    EXPECT_EQ(menus, 2);
}

TEST_P(WindowsTest, texts_haveTheRoomThatTheyTake)
{
    int texts = 0;
    for (QWidget* const window : all.windows())
        for (const QWidget* const widget : AllWindows::seenIn(*window)) {
            const QSize room = roomForText(*widget);
            if (room.isEmpty()) continue;
            ++texts;
            EXPECT_GE(widget->width(), room.width()) << placeOf(*widget);
            EXPECT_GE(widget->height(), room.height()) << placeOf(*widget);
        }
    EXPECT_GT(texts, 50);
}

TEST_P(WindowsTest, windows_endInARowOfButtons_oneOfWhichLeavesThem)
{
    int rows = 0;
    for (const QWidget* const window : all.windows()) {
        if (is<PreviewWindow>(*window)) continue; // it is a movie alone
        const auto* const row = window->findChild<QDialogButtonBox*>(QString(), Qt::FindDirectChildrenOnly);
        ASSERT_NE(row, nullptr) << placeOf(*window);
        ++rows;
        const QList<QAbstractButton*> buttons = row->buttons();
        EXPECT_TRUE(std::any_of(buttons.begin(), buttons.end(), [row](QAbstractButton* button) {
            return row->buttonRole(button) == QDialogButtonBox::RejectRole;
        })) << placeOf(*window);
        for (const QWidget* const widget : AllWindows::seenIn(*window))
            EXPECT_TRUE(widget->parentWidget() != window || widget == row ||
                        widget->geometry().bottom() < row->geometry().top())
                << placeOf(*widget);
    }
    EXPECT_EQ(rows, 9);
}

TEST_P(WindowsTest, windows_fitOnASmallScreenAtTwiceTheScale)
{
    for (const QWidget* const window : all.windows()) {
        const QSize least = leastSizeOf(*window);
        EXPECT_LE(least.width(), 1024 / 2) << placeOf(*window);
        EXPECT_LE(least.height(), 768 / 2 - 40) << placeOf(*window);
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, WindowsTest, testing::ValuesIn(AllWindows::languages()),
                         [](const auto& language) { return language.param.toStdString(); });

} // namespace kestro
