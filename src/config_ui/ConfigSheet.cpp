#include "config_ui/ConfigSheet.h"

#include "config_ui/DecimalValidator.h"
#include "config_ui/DroppedMovies.h"
#include "config_ui/PlaylistDelegate.h"
#include "config_ui/PlaylistMenu.h"
#include "config_ui/PlaylistPane.h"
#include "config_ui/SheetPanels.h"
#include "config_ui/StarterPane.h"
#include "config_ui/ThemePanel.h"
#include "config_ui/URLPanel.h"
#include "platform/base/Paths.h"
#include "platform/base/PostTo.h"
#include "platform/base/StoredValue.h"
#include "settings/ConfigurableSaver.h"
#include "ui_SSConfig.h"
#include "widgets/WindowPlace.h"

#include <QApplication>
#include <QButtonGroup>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QScreen>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyle>

#include <algorithm>
#include <cmath>

namespace kestro {

namespace {

/// The slider counts in hundredths of the movie's own size.
constexpr float sliderStepsPerUnit = 100;

/// Width of the playlist where there is room for it.
constexpr int playlistCharacters = 76;

/// Digits that a number field has room for.
constexpr int fieldDigits = 6;

ProbeWorker::Read readerOfPictures(const QFontMetrics& font)
{
    const QSize pixels = PlaylistDelegate::pictureSize(font) * qApp->devicePixelRatio();
    return [pixels](const QUrl& url, const std::stop_token& stop) { return readEntry(url, pixels, stop); };
}

QButtonGroup* groupOf(std::initializer_list<QAbstractButton*> buttons, QObject* parent)
{
    auto* const group = new QButtonGroup(parent);
    int id = 0;
    for (QAbstractButton* const button : buttons)
        group->addButton(button, id++);
    return group;
}

/// Checks the button of that number, or none where there is no such button.
void check(QButtonGroup& group, int id)
{
    if (QAbstractButton* const button = group.button(id)) return button->setChecked(true);
    group.setExclusive(false);
    for (QAbstractButton* const button : group.buttons())
        button->setChecked(false);
    group.setExclusive(true);
}

void enable(const QButtonGroup& group, bool isEnabled)
{
    for (QAbstractButton* const button : group.buttons())
        button->setEnabled(isEnabled);
}

/// Takes what is dragged here as a copy: who hands over files to be moved may take them away.
void acceptCopy(QDropEvent& event)
{
    event.setDropAction(Qt::CopyAction);
    event.accept();
}

} // namespace

ConfigSheet::ConfigSheet(ConfigurableSaver& saver, TrailerBrowser* trailers, QWidget* parent,
                         QSettings* defaults)
    : ConfigSheet(saver, trailers, readerOfPictures(QFontMetrics(QApplication::font())), parent, defaults)
{
}

ConfigSheet::ConfigSheet(ConfigurableSaver& saver, TrailerBrowser* trailers, const ProbeWorker::Read& read,
                         QWidget* parent, QSettings* defaults)
    : QDialog(parent)
    , m_movies(saver.movies())
    , m_ui(std::make_unique<Ui::SSConfig>())
    , m_ownDefaults(defaults != nullptr ? nullptr : std::make_unique<QSettings>())
    , m_panels(std::make_unique<SheetPanels>(*this))
    , m_model(std::make_unique<ConfigModel>(
          ConfigModel::Sources{saver, *m_panels, defaults != nullptr ? *defaults : *m_ownDefaults, trailers}))
{
    m_ui->setupUi(this);
    new WindowPlace(*this);
    setAcceptDrops(true);
    m_playlist = std::make_unique<PlaylistPane>(*m_ui->playListView, *m_model, read);
    m_urlPanel = new URLPanel(
        [this](int tag, const QString& text) { return m_model->closeURLPanel(tag, text); }, this);
    setUpStarter(read);
    setUpGroups();
    setUpFields();
    setUpButtons(trailers != nullptr);
    showBackSavers();
    showControls();
    connectControls();
    connectFields();
    connectButtons();
    connectRowButtons();
}

ConfigSheet::~ConfigSheet() = default;

// It stands, and the keys come to it, between the playlist and the buttons below that.
void ConfigSheet::setUpStarter(const ProbeWorker::Read& read)
{
    m_starter = new StarterPane(*m_model, read, m_ui->playlistGroup);
    m_ui->playlistLayout->insertWidget(1, m_starter);
    QWidget* before = m_ui->playListView;
    for (QPushButton* const button : m_starter->buttons()) {
        setTabOrder(before, button);
        before = button;
    }
    setTabOrder(before, m_ui->addMovieBtn);
}

void ConfigSheet::setUpGroups()
{
    m_playModeRadio = groupOf({m_ui->playModeFit, m_ui->playModeStretch, m_ui->playModeEnlarge}, this);
    m_partialModeRadio = groupOf({m_ui->partialModeFly, m_ui->partialModeBounce}, this);
    m_reposRadio = groupOf({m_ui->reposInterval, m_ui->reposMovieEnd}, this);
}

void ConfigSheet::setUpFields()
{
    m_secondsWord = m_ui->secondsLabel->text();
    m_ui->timeIntervalField->setValidator(new DecimalValidator(m_ui->timeIntervalField));
    m_ui->scaleField->setValidator(new DecimalValidator(
        m_ui->scaleField, [this] { return shownDecimal(fieldText(m_model->controls().scaleSlider)); }));
    for (QLineEdit* const field : {m_ui->timeIntervalField, m_ui->scaleField}) {
        const int text = field->fontMetrics().horizontalAdvance(QString(fieldDigits, u'0'));
        field->setMaximumWidth(text + field->sizeHint().height());
        field->setMinimumWidth(field->maximumWidth());
    }
}

void ConfigSheet::setUpButtons(bool hasTrailers)
{
    for (QWidget* const wheeled :
         {static_cast<QWidget*>(m_ui->scaleSlider), static_cast<QWidget*>(m_ui->backSaverPopup)})
        wheeled->installEventFilter(this);
    m_ui->trailersBtn->setEnabled(hasTrailers);
    m_ui->idvdBtn->setEnabled(QFileInfo::exists(platformPath(dvdProgram)));
    for (QPushButton* const arrow : {m_ui->moveUpBtn, m_ui->moveDownBtn})
        arrow->setMaximumWidth(arrow->sizeHint().height() * 3 / 2);
    m_playlistMenu = std::make_unique<PlaylistMenu>(
        *m_ui->playListView, *m_playlist, *m_model, *m_panels,
        QList<QAbstractButton*>{m_ui->addMovieBtn, m_ui->addFolderBtn, m_ui->addURLBtn, m_ui->trailersBtn,
                                m_ui->idvdBtn, nullptr, m_ui->moveUpBtn, m_ui->moveDownBtn, m_ui->deleteBtn});
}

void ConfigSheet::connectControls()
{
    connect(m_model.get(), &ConfigModel::controlsChanged, this, &ConfigSheet::showControls);
    connect(m_model.get(), &ConfigModel::backSaversReloaded, this, &ConfigSheet::showBackSavers);
    const auto follow = [this](QCheckBox* box, bool ConfigControls::*control) {
        connect(box, &QCheckBox::toggled, this,
                [this, control](bool isOn) { m_model->controls().*control = isOn; });
    };
    follow(m_ui->soundChk, &ConfigControls::soundChk);
    follow(m_ui->fullScreenChk, &ConfigControls::fullScreenChk);
    follow(m_ui->randomChk, &ConfigControls::randomChk);
    follow(m_ui->continueChk, &ConfigControls::continueChk);
    follow(m_ui->fadeoutChk, &ConfigControls::fadeoutChk);
    follow(m_ui->backAndForthChk, &ConfigControls::backAndForthChk);
    connect(m_ui->fullScreenChk, &QCheckBox::toggled, m_model.get(), &ConfigModel::checkFullScreen);

    const auto followGroup = [this](QButtonGroup* group, int ConfigControls::*control) {
        connect(group, &QButtonGroup::idToggled, this, [this, control](int id, bool isOn) {
            if (isOn) m_model->controls().*control = id;
        });
    };
    followGroup(m_playModeRadio, &ConfigControls::playModeRadio);
    followGroup(m_partialModeRadio, &ConfigControls::partialModeRadio);
    followGroup(m_reposRadio, &ConfigControls::reposRadio);
    connect(m_partialModeRadio, &QButtonGroup::idToggled, this, [this](int, bool isOn) {
        if (isOn) m_model->checkDynamic();
    });
}

void ConfigSheet::connectFields()
{
    connect(m_ui->timeIntervalField, &QLineEdit::textEdited, this,
            [this](const QString& text) { m_model->controls().timeIntervalField = storedDecimal(text); });
    connect(m_ui->timeIntervalField, &QLineEdit::textChanged, this, &ConfigSheet::showInterval);
    connect(m_ui->scaleSlider, &QSlider::valueChanged, this,
            [this](int steps) { takeScale(static_cast<float>(steps) / sliderStepsPerUnit); });
    connect(m_ui->scaleField, &QLineEdit::textEdited, this, [this](const QString& text) {
        if (const float scale = floatValue(storedDecimal(text)); scale > 0)
            m_model->controls().scaleSlider = scale;
        showSlider();
    });
    connect(m_ui->scaleField, &QLineEdit::editingFinished, this, &ConfigSheet::showScale);
    connect(m_ui->backSaverPopup, &QComboBox::currentIndexChanged, this,
            [this](int item) { m_model->controls().backSaverPopup = item; });
}

void ConfigSheet::connectButtons()
{
    connect(m_ui->addMovieBtn, &QPushButton::clicked, m_model.get(), &ConfigModel::selectMovie);
    connect(m_ui->addFolderBtn, &QPushButton::clicked, m_model.get(), &ConfigModel::selectFolder);
    connect(m_ui->addURLBtn, &QPushButton::clicked, m_urlPanel, &URLPanel::openURLPanel);
    connect(m_ui->trailersBtn, &QPushButton::clicked, m_model.get(), &ConfigModel::openTrailerPanel);
    connect(m_ui->idvdBtn, &QPushButton::clicked, this, &ConfigSheet::openThemePanel);
}

void ConfigSheet::connectRowButtons()
{
    RQTableViewRowMove& table = *m_ui->playListView;
    connect(m_ui->deleteBtn, &QPushButton::clicked, m_playlist.get(), &PlaylistPane::deleteSelected);
    connect(m_ui->moveUpBtn, &QPushButton::clicked, this, [&table] { table.moveSelectedRowBy(-1); });
    connect(m_ui->moveDownBtn, &QPushButton::clicked, this, [&table] { table.moveSelectedRowBy(1); });
    connect(table.selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &ConfigSheet::showRowButtons);
    connect(&m_model->playList(), &EditedPlaylist::changed, this, &ConfigSheet::showRowButtons);
    showRowButtons();
}

void ConfigSheet::showRowButtons()
{
    m_ui->deleteBtn->setEnabled(!m_playlist->selectedRows().isEmpty());
    m_ui->moveUpBtn->setEnabled(m_ui->playListView->hasPlaceForSelectedRow(-1));
    m_ui->moveDownBtn->setEnabled(m_ui->playListView->hasPlaceForSelectedRow(1));
}

void ConfigSheet::openThemePanel()
{
    if (!m_themePanel) m_themePanel = std::make_unique<ThemePanel>(*m_model, m_movies, this);
    m_themePanel->showIDVDThemes();
}

void ConfigSheet::showBackSavers()
{
    const QSignalBlocker quiet(m_ui->backSaverPopup);
    m_ui->backSaverPopup->clear();
    m_ui->backSaverPopup->addItem(tr("None"));
    for (const QString& item : m_model->backSaverItems().sliced(1))
        m_ui->backSaverPopup->addItem(QFileInfo(item).completeBaseName());
    for (int i = 0; i < m_model->backSaverList().size(); ++i)
        m_ui->backSaverPopup->setItemData(i + 1, m_model->backSaverList()[i], Qt::ToolTipRole);
}

void ConfigSheet::showControls()
{
    const ConfigControls shown = m_model->controls(); // as it is now: what is set here is taken, too
    m_ui->soundChk->setChecked(shown.soundChk);
    m_ui->randomChk->setChecked(shown.randomChk);
    m_ui->continueChk->setChecked(shown.continueChk);
    m_ui->fadeoutChk->setChecked(shown.fadeoutChk);
    m_ui->backAndForthChk->setChecked(shown.backAndForthChk);
    const QSignalBlocker quietModes(m_partialModeRadio);
    const QSignalBlocker quietSwitch(m_ui->fullScreenChk);
    check(*m_partialModeRadio, shown.partialModeRadio);
    m_ui->fullScreenChk->setChecked(shown.fullScreenChk);
    check(*m_playModeRadio, shown.playModeRadio);
    check(*m_reposRadio, shown.reposRadio);
    m_ui->backSaverPopup->setCurrentIndex(shown.backSaverPopup);
    if (const QString interval = shownDecimal(shown.timeIntervalField);
        m_ui->timeIntervalField->text() != interval)
        m_ui->timeIntervalField->setText(interval);
    showInterval();
    showScale();
    showEnabling();
}

// The group of what is smaller than the screen is off as a whole in full screen.
void ConfigSheet::showEnabling()
{
    const ConfigEnabling& can = m_model->enabling();
    m_ui->partialGroup->setEnabled(!m_model->controls().fullScreenChk);
    enable(*m_playModeRadio, can.playModeRadio);
    enable(*m_partialModeRadio, can.partialModeRadio);
    enable(*m_reposRadio, can.reposRadio);
    m_ui->timeIntervalField->setEnabled(can.timeIntervalField);
    m_ui->scaleSlider->setEnabled(can.scaleSlider);
    m_ui->scaleField->setEnabled(can.scaleField);
    m_ui->fadeoutChk->setEnabled(can.fadeoutChk);
    m_ui->backAndForthChk->setEnabled(can.backAndForthChk);
    m_ui->backSaverPopup->setEnabled(can.backSaverPopup);
    for (QWidget* const label : {m_ui->reposLabel, m_ui->secondsLabel})
        label->setEnabled(can.reposRadio);
}

void ConfigSheet::takeScale(float scale)
{
    m_model->controls().scaleSlider = scale;
    showScale();
}

// The slider's ends are those of the size, whoever sets it.
void ConfigSheet::showSlider()
{
    float& scale = m_model->controls().scaleSlider;
    const float least = static_cast<float>(m_ui->scaleSlider->minimum()) / sliderStepsPerUnit;
    const float most = static_cast<float>(m_ui->scaleSlider->maximum()) / sliderStepsPerUnit;
    scale = scale >= least ? std::min(scale, most) : least;
    const QSignalBlocker quiet(m_ui->scaleSlider);
    m_ui->scaleSlider->setValue(static_cast<int>(std::lround(scale * sliderStepsPerUnit)));
}

void ConfigSheet::showInterval()
{
    const bool isWait = floatValue(storedDecimal(m_ui->timeIntervalField->text())) > 0;
    m_ui->secondsLabel->setText(isWait ? m_secondsWord : tr("seconds: all the time"));
}

void ConfigSheet::showScale()
{
    showSlider();
    const float scale = m_model->controls().scaleSlider;
    if (!m_ui->scaleField->hasFocus() || floatValue(storedDecimal(m_ui->scaleField->text())) != scale)
        m_ui->scaleField->setText(shownDecimal(fieldText(scale)));
}

// The options are as wide and as high as they want if the screen has room for that; else they scroll, below
// the playlist where they do not even have their width beside it.
void ConfigSheet::fitToScreen()
{
    const QSize room = screen()->availableSize() -
                       QSize(0, 2 * QApplication::style()->pixelMetric(QStyle::PM_TitleBarHeight));
    QScrollArea& area = *m_ui->optionsArea;
    const QSize wanted = m_ui->options->sizeHint();
    const int bar = area.verticalScrollBar()->sizeHint().width();
    const int beside = minimumSizeHint().width() - area.minimumSizeHint().width();
    const bool isNarrow = beside + wanted.width() + bar > room.width();
    m_ui->columns->setDirection(isNarrow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    m_ui->columns->setStretchFactor(&area, isNarrow ? 1 : 0);
    if (!isNarrow) area.setMinimumWidth(wanted.width() + bar);
    const int around = sizeHint().height() - area.sizeHint().height();
    const QSize best(wanted.width() + fontMetrics().averageCharWidth() * playlistCharacters,
                     wanted.height() + around);
    resize(best.expandedTo(minimumSizeHint()).boundedTo(room));
}

void ConfigSheet::showEvent(QShowEvent* event)
{
    if (!testAttribute(Qt::WA_Resized)) fitToScreen();
    if (!event->spontaneous()) {
        m_ui->playListView->setFocus(); // not where the sheet was closed
        m_starter->begin();
    }
    QDialog::showEvent(event);
}

void ConfigSheet::done(int result)
{
    m_urlPanel->hide();
    if (m_themePanel) m_themePanel->hide();
    m_model->closeConfig(result == Accepted ? 1 : 0);
    QDialog::done(result);
}

// The wheel scrolls the options, wherever it is turned: what it is over by chance stays as it was.
bool ConfigSheet::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Wheel) return QDialog::eventFilter(watched, event);
    event->ignore();
    return true;
}

void ConfigSheet::dragEnterEvent(QDragEnterEvent* event)
{
    const bool canCopy = event->possibleActions().testFlag(Qt::CopyAction);
    if (canCopy && holdsFiles(*event->mimeData())) acceptCopy(*event);
}

void ConfigSheet::dragMoveEvent(QDragMoveEvent* event)
{
    acceptCopy(*event);
}

// Whoever drags waits for the answer: what takes time, or a person, comes after it.
void ConfigSheet::dropEvent(QDropEvent* event)
{
    acceptCopy(*event);
    postTo(*m_model, [this, urls = event->mimeData()->urls()] { m_model->addDropped(urls); });
}

} // namespace kestro
