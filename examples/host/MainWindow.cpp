#include "MainWindow.h"

#include "HostSession.h"
#include "PluginDoctor.h"
#include "PluginsDialog.h"
#include "Tools.h"

#include <KVAdjustment.h>
#include <KVAdjustmentManager.h>
#include <KVApplication.h>
#include <KVCMSManager.h>
#include <KVGradientStop.h>
#include <KVImageFileManager.h>
#include <KVMenuManager.h>
#include <KVRecentManager.h>
#include <KVToolBarManager.h>
#include <KVToolWidgetManager.h>
#include <MZExportResolutions.h>

#include <QActionGroup>
#include <QColorDialog>
#include <QComboBox>
#include <QDockWidget>
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QLabel>
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QStatusBar>
#include <QToolBar>

// The host's top-level menus, left to right.
enum KVMenuManager::MenuRole : int
{
    FileMenu = 10,
    AdjustmentsMenu = 20,
    ViewMenu = 30,
    HelpMenu = 40,
};

namespace {
// Positions inside the File menu; plug-ins may use the gaps.
enum FilePosition
{
    OpenPosition = 10,
    RecentPosition = 20,
    FavouritesPosition = 30,
    ExportPosition = 40,
    QuitPosition = 100,
};

QPixmap Swatch(const QColor& colour)
{
    QPixmap pixmap(32, 16);
    pixmap.fill(colour);
    return pixmap;
}

// The foreground-to-background gradient that gradient tools start from.
QPixmap GradientPreview()
{
    KVGradientStop first;
    first.SetForeground(true);
    first.SetPosition(0.0);
    KVGradientStop last;
    last.SetBackground(true);
    last.SetPosition(1.0);
    QLinearGradient gradient(0, 0, 160, 0);
    gradient.setStops(ToGradientStops({first, last}));
    KVApplication::SetGradient(QBrush(gradient));
    QPixmap pixmap(160, 16);
    QPainter(&pixmap).fillRect(pixmap.rect(), KVApplication::GetGradient());
    return pixmap;
}
} // namespace

MainWindow::MainWindow(const HostSession& session)
    : m_session(session)
{
    m_image = new QLabel;
    m_image->setAlignment(Qt::AlignCenter);
    m_view = new QScrollArea;
    m_view->setWidget(m_image);
    m_view->setWidgetResizable(true);
    setCentralWidget(m_view);

    KVImageFileManager::Register(&MainWindow::OpenFile, this);
    KVImageFileManager::Register(&MainWindow::SaveDocument, this);
    BuildMenus();
    BuildTools();

    auto* panel = new QDockWidget(this);
    panel->setObjectName("SidePanel");
    panel->setWidget(BuildSidePanel());
    addDockWidget(Qt::RightDockWidgetArea, panel);

    connect(KVApplication::GetInstance(), &KVApplication::ForegroundChanged, this,
            &MainWindow::UpdateSwatches);
    connect(KVApplication::GetInstance(), &KVApplication::BackgroundChanged, this,
            &MainWindow::UpdateSwatches);
    Retranslate();
    UpdateSwatches();
    resize(1000, 700);
}

MainWindow::~MainWindow()
{
    KVImageFileManager::Register(KVImageFileManager::OpenCallback(nullptr), nullptr);
    KVImageFileManager::Register(KVImageFileManager::SaveCallback(nullptr), nullptr);
    // The tool areas belong to their managers, not to the window.
    if (QWidget* bar = KVToolBarManager::GeneralContent())
        bar->setParent(nullptr);
    if (QWidget* panel = KVToolWidgetManager::GeneralContent())
        panel->setParent(nullptr);
    // Top-level menus made by the menu manager have no parent.
    delete m_fileMenu;
    delete m_adjustmentsMenu;
    delete m_viewMenu;
    delete m_helpMenu;
}

void MainWindow::BuildMenus()
{
    m_fileMenu = KVMenuManager::CreateMenu(KVMenuManager::FileMenu, QString());
    m_openAction = KVMenuManager::CreateAction(KVMenuManager::FileMenu, OpenPosition);
    m_openAction->setShortcut(QKeySequence::Open);
    connect(m_openAction, &QAction::triggered, this, [this] {
        const QString path =
            QFileDialog::getOpenFileName(this, tr("Open Image"), KVApplication::GetPathOpen(),
                                         KVImageFileManager::GetFilterForRead());
        if (!path.isEmpty())
            Open(path);
    });
    m_recentMenu = KVMenuManager::CreateMenu(KVMenuManager::FileMenu, RecentPosition);
    connect(m_recentMenu, &QMenu::aboutToShow, this, &MainWindow::FillRecentMenu);
    m_favouritesMenu = KVMenuManager::CreateMenu(KVMenuManager::FileMenu, FavouritesPosition);
    connect(m_favouritesMenu, &QMenu::aboutToShow, this, &MainWindow::FillRecentMenu);
    m_exportMenu = KVMenuManager::CreateMenu(KVMenuManager::FileMenu, ExportPosition);
    connect(m_exportMenu, &QMenu::aboutToShow, this, &MainWindow::FillExportMenu);
    m_quitAction = KVMenuManager::CreateAction(KVMenuManager::FileMenu, QuitPosition);
    m_quitAction->setShortcut(QKeySequence::Quit);
    connect(m_quitAction, &QAction::triggered, this, &QWidget::close);

    m_adjustmentsMenu = KVMenuManager::CreateMenu(KVMenuManager::AdjustmentsMenu, QString());
    FillAdjustmentsMenu();
    connect(KVAdjustmentManager::GetInstance(), &KVAdjustmentManager::Registred, this,
            &MainWindow::FillAdjustmentsMenu);
    connect(KVAdjustmentManager::GetInstance(), &KVAdjustmentManager::Unregistred, this,
            &MainWindow::FillAdjustmentsMenu);

    m_viewMenu = KVMenuManager::CreateMenu(KVMenuManager::ViewMenu, QString());
    m_themeMenu = KVMenuManager::CreateMenu(KVMenuManager::ViewMenu, 10);
    auto* themes = new QActionGroup(m_themeMenu);
    m_darkAction = themes->addAction(QString());
    m_lightAction = themes->addAction(QString());
    for (QAction* action : {m_darkAction, m_lightAction}) {
        action->setCheckable(true);
        m_themeMenu->addAction(action);
    }
    (KVApplication::GetApplicationTheme() == KVApplication::Dark ? m_darkAction : m_lightAction)
        ->setChecked(true);
    connect(themes, &QActionGroup::triggered, this, [this](QAction* action) {
        KVApplication::SetApplicationTheme(action == m_darkAction ? KVApplication::Dark
                                                                  : KVApplication::Light);
        KVApplication::GetInstance()->LoadTheme();
        statusBar()->showMessage(tr("The theme changes fully at the next start."));
    });
    m_languageMenu = KVMenuManager::CreateMenu(KVMenuManager::ViewMenu, 20);
    FillLanguageMenu();

    m_helpMenu = KVMenuManager::CreateMenu(KVMenuManager::HelpMenu, QString());
    m_pluginsAction = KVMenuManager::CreateAction(KVMenuManager::HelpMenu, 10);
    connect(m_pluginsAction, &QAction::triggered, this, &MainWindow::ShowPlugins);

    KVMenuManager::Setup(menuBar());
}

PluginsDialog* MainWindow::ShowPlugins()
{
    auto* dialog =
        new PluginsDialog(PluginDoctor::Collect(*KVApplication::GetInstance(), m_session), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->show();
    return dialog;
}

void MainWindow::BuildTools()
{
    auto* tools = addToolBar(tr("Tools"));
    tools->setObjectName("Tools");
    for (QAction* action : ToolActions())
        tools->addAction(action);

    // The current tool's own widgets: its bar under the tools, its panel on the left.
    auto* toolBar = addToolBar(tr("Tool options"));
    toolBar->setObjectName("ToolBarArea");
    toolBar->addWidget(KVToolBarManager::GeneralContent());
    auto* toolPanel = new QDockWidget(this);
    toolPanel->setObjectName("ToolPanelArea");
    toolPanel->setWidget(KVToolWidgetManager::GeneralContent());
    addDockWidget(Qt::LeftDockWidgetArea, toolPanel);
    const auto followTitle = [toolPanel] {
        toolPanel->setWindowTitle(KVToolWidgetManager::GeneralContent()->windowTitle());
    };
    connect(KVToolWidgetManager::GetInstance(), &KVToolWidgetManager::ContentChanged, this,
            followTitle);
    followTitle();
}

QWidget* MainWindow::BuildSidePanel()
{
    auto* panel = new QWidget;
    auto* form = new QFormLayout(panel);
    m_foreground = new QPushButton;
    m_background = new QPushButton;
    connect(m_foreground, &QPushButton::clicked, this, [this] { ChooseColour(true); });
    connect(m_background, &QPushButton::clicked, this, [this] { ChooseColour(false); });
    m_gradient = new QLabel;
    form->addRow(m_foreground);
    form->addRow(m_background);
    form->addRow(m_gradient);

    m_profiles = new QComboBox;
    if (KVCMSManager* profiles = KVCMSManager::GetInstance()) {
        for (int i = 0; i < profiles->GetRGBProfileCount(); ++i) {
            const KVCMSProfile profile = profiles->GetRGBProfile(i);
            m_profiles->addItem(profile.GetDescription().isEmpty()
                                    ? QFileInfo(profile.GetPath()).fileName()
                                    : profile.GetDescription(),
                                profile.GetPath());
        }
        const QString stored =
            KVApplication::GetUserValue(KVApplication::WorkingProfileID).toString();
        const int index = m_profiles->findData(stored);
        profiles->SetWorkingRGBIndex(index < 0 && m_profiles->count() > 0 ? 0 : index);
        m_profiles->setCurrentIndex(profiles->GetWorkingRGBIndex());
        connect(m_profiles, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
                [this, profiles](int index) {
                    profiles->SetWorkingRGBIndex(index);
                    KVApplication::SetUserValue(KVApplication::WorkingProfileID,
                                                m_profiles->itemData(index));
                });
    }
    m_profileLabel = new QLabel;
    form->addRow(m_profileLabel, m_profiles);

    m_patterns = new QComboBox;
    for (int i = 0; i < KVApplication::GetPatternCount(); ++i) {
        const QString file = KVApplication::GetPatternFile(i);
        m_patterns->addItem(QIcon(file), QFileInfo(file).completeBaseName());
    }
    m_patterns->setCurrentIndex(KVApplication::GetTexturePatternIndex());
    connect(m_patterns, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &KVApplication::SetTexturePatternIndex);
    m_patternLabel = new QLabel;
    form->addRow(m_patternLabel, m_patterns);
    return panel;
}

void MainWindow::Retranslate()
{
    setWindowTitle(tr("Pelkaro"));
    m_fileMenu->setTitle(tr("&File"));
    m_openAction->setText(tr("&Open..."));
    m_recentMenu->setTitle(tr("Open &Recent"));
    m_favouritesMenu->setTitle(tr("&Favourites"));
    m_exportMenu->setTitle(tr("&Export"));
    m_quitAction->setText(tr("&Quit"));
    m_adjustmentsMenu->setTitle(tr("&Adjustments"));
    m_viewMenu->setTitle(tr("&View"));
    m_themeMenu->setTitle(tr("&Theme"));
    m_darkAction->setText(tr("&Dark"));
    m_lightAction->setText(tr("&Light"));
    m_languageMenu->setTitle(tr("&Language"));
    m_helpMenu->setTitle(tr("&Help"));
    m_pluginsAction->setText(tr("&Plug-ins..."));
    m_profileLabel->setText(tr("Working profile"));
    m_patternLabel->setText(tr("Pattern"));
    UpdateSwatches();
    FillLanguageMenu();
}

void MainWindow::changeEvent(QEvent* event)
{
    // Installing a translator tells every widget.
    if (event->type() == QEvent::LanguageChange && m_fileMenu)
        Retranslate();
    QMainWindow::changeEvent(event);
}

void MainWindow::FillRecentMenu()
{
    KVRecentManager* recent = KVRecentManager::GetInstance();
    const auto fill = [this](QMenu* menu, const QStringList& paths) {
        menu->clear();
        for (const QString& path : paths)
            menu->addAction(QFileInfo(path).fileName(), this, [this, path] { Open(path); });
        menu->setEnabled(true);
    };
    fill(m_recentMenu, recent->GetRecents());
    fill(m_favouritesMenu, recent->GetFavorites());
    m_favouritesMenu->addSeparator();
    QAction* add = m_favouritesMenu->addAction(tr("Add to Favourites"), this, [this] {
        KVRecentManager::GetInstance()->PushFavorite(m_document.path);
    });
    add->setEnabled(!m_document.path.isEmpty() && !recent->IsFavorite(m_document.path));
}

void MainWindow::FillExportMenu()
{
    m_exportMenu->clear();
    const QList<QSize> presets = MZExportResolutions::GetList();
    for (int i = 0; i < presets.size(); ++i) {
        const QSize size = presets.at(i);
        QAction* action = m_exportMenu->addAction(
            tr("%1 x %2 pixels...").arg(size.width()).arg(size.height()), this, [this, i] {
                const QString path = QFileDialog::getSaveFileName(
                    this, tr("Export Image"), KVApplication::GetPathExport(),
                    KVImageFileManager::GetFilterForWrite());
                if (!path.isEmpty())
                    ExportAtPreset(i, path);
            });
        action->setEnabled(!m_document.image.isNull());
    }
}

void MainWindow::FillAdjustmentsMenu()
{
    m_adjustmentsMenu->clear();
    for (const QString& id : KVAdjustmentManager::GetRegistered()) {
        KVAdjustment* adjustment = KVAdjustmentManager::GetAdjustment(id);
        if (adjustment)
            m_adjustmentsMenu->addAction(adjustment->GetName(), this,
                                         [this, id] { ApplyAdjustment(id); });
    }
}

void MainWindow::FillLanguageMenu()
{
    m_languageMenu->clear();
    auto* app = KVApplication::GetInstance();
    for (const QString& code : app->GetLanguages()) {
        const QString name = KVApplication::GetLanguageName(code);
        QAction* action = m_languageMenu->addAction(name.isEmpty() ? code : name, this, [code] {
            KVApplication::SetUserValue(KVApplication::LanguageIndex, code);
            KVApplication::GetInstance()->LoadLanguage(code);
        });
        action->setCheckable(true);
        action->setChecked(code == app->GetLanguage());
    }
}

void MainWindow::UpdateSwatches()
{
    if (!m_foreground)
        return;
    m_foreground->setIcon(Swatch(KVApplication::GetForeground()));
    m_foreground->setText(tr("Foreground"));
    m_background->setIcon(Swatch(KVApplication::GetBackground()));
    m_background->setText(tr("Background"));
    m_gradient->setPixmap(GradientPreview());
}

void MainWindow::ChooseColour(bool foreground)
{
    const QColor current =
        foreground ? KVApplication::GetForeground() : KVApplication::GetBackground();
    const QColor chosen = QColorDialog::getColor(current, this);
    if (!chosen.isValid())
        return;
    foreground ? KVApplication::SetForeground(chosen) : KVApplication::SetBackground(chosen);
}

void MainWindow::Open(const QString& path)
{
    bool ok = true;
    if (!KVImageFileManager::Open(path, &ok))
        Q_EMIT Opened(path, tr("No plug-in reads this file."));
}

bool MainWindow::OpenFile(const QString& path, bool* ok, void* user)
{
    Q_UNUSED(ok);
    auto* window = static_cast<MainWindow*>(user);
    if (!KVImageFileManager::GetPluginForRead(QFileInfo(path).suffix()))
        return false;
    DecodeInBackground(path, window, [window, path](const QImage& image, const QString& error) {
        if (image.isNull()) {
            window->statusBar()->showMessage(tr("Could not open %1: %2").arg(path, error));
        } else {
            window->ShowImage(path, image);
        }
        Q_EMIT window->Opened(path, error);
    });
    return true;
}

void MainWindow::ShowImage(const QString& path, const QImage& image)
{
    m_document.path = path;
    m_document.image = image;
    m_image->setPixmap(QPixmap::fromImage(image));
    KVApplication::SetPathOpen(QFileInfo(path).absolutePath());
    KVRecentManager::GetInstance()->PushRecent(path);
    statusBar()->showMessage(tr("%1: %2 x %3 pixels")
                                 .arg(QFileInfo(path).fileName())
                                 .arg(image.width())
                                 .arg(image.height()));
}

bool MainWindow::ApplyAdjustment(const QString& id)
{
    KVAdjustment* adjustment = KVAdjustmentManager::GetAdjustment(id);
    if (!adjustment || m_document.image.isNull())
        return false;
    m_document.image = adjustment->Apply(m_document.image);
    m_image->setPixmap(QPixmap::fromImage(m_document.image));
    KVRecentManager::GetInstance()->ContentUpdated(m_document.path);
    return true;
}

bool MainWindow::ExportAtPreset(int preset, const QString& path)
{
    if (m_document.image.isNull() || preset < 0 || preset >= MZExportResolutions::GetSize())
        return false;
    ImageDocument exported;
    exported.path = path;
    exported.image = m_document.image.scaled(MZExportResolutions::Get(preset), Qt::KeepAspectRatio,
                                             Qt::SmoothTransformation);
    return KVImageFileManager::Save(&exported);
}

bool MainWindow::SaveDocument(MZDocumentInterface* document, void* user)
{
    auto* window = static_cast<MainWindow*>(user);
    const auto& image = *static_cast<ImageDocument*>(document);
    QString error;
    const bool written = WriteDocument(image, &error);
    window->statusBar()->showMessage(written
                                         ? tr("Exported %1").arg(image.path)
                                         : tr("Could not export %1: %2").arg(image.path, error));
    if (written)
        KVApplication::SetPathExport(QFileInfo(image.path).absolutePath());
    return written;
}
