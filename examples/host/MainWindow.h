#pragma once

#include "ImageFiles.h"

#include <QMainWindow>

class HostSession;
class PluginsDialog;
class QAction;
class QComboBox;
class QLabel;
class QMenu;
class QPushButton;
class QScrollArea;

// The editor shell: menus composed through the menu manager, the tools and
// their two areas, colour swatches, a gradient preview, the working profile,
// a pattern chooser and the open image.
class MainWindow : public QMainWindow
{
    Q_OBJECT
public:
    explicit MainWindow(const HostSession& session);
    ~MainWindow() override;

    // Opens through the image file manager, which calls back OpenFile().
    void Open(const QString& path);
    const ImageDocument& Document() const { return m_document; }
    // Applies the registered adjustment to the open image.
    bool ApplyAdjustment(const QString& id);
    // Writes the open image, scaled to the resolution preset, through the save callback.
    bool ExportAtPreset(int preset, const QString& path);
    // Help > Plug-ins: shows the plug-ins of this start (not modal) and answers the dialog.
    PluginsDialog* ShowPlugins();

Q_SIGNALS:
    // An Open() finished; error is empty when the image is shown.
    void Opened(const QString& path, const QString& error);

protected:
    void changeEvent(QEvent* event) override;

private:
    static bool OpenFile(const QString& path, bool* ok, void* user);
    static bool SaveDocument(MZDocumentInterface* document, void* user);

    void BuildMenus();
    void BuildTools();
    QWidget* BuildSidePanel();
    void FillRecentMenu();
    void FillExportMenu();
    void FillAdjustmentsMenu();
    void FillLanguageMenu();
    void Retranslate();
    void ShowImage(const QString& path, const QImage& image);
    void UpdateSwatches();
    void ChooseColour(bool foreground);

    const HostSession& m_session;
    ImageDocument m_document;
    QScrollArea* m_view = nullptr;
    QLabel* m_image = nullptr;
    QMenu* m_fileMenu = nullptr;
    QMenu* m_adjustmentsMenu = nullptr;
    QMenu* m_viewMenu = nullptr;
    QMenu* m_helpMenu = nullptr;
    QMenu* m_recentMenu = nullptr;
    QMenu* m_favouritesMenu = nullptr;
    QMenu* m_exportMenu = nullptr;
    QMenu* m_themeMenu = nullptr;
    QMenu* m_languageMenu = nullptr;
    QAction* m_openAction = nullptr;
    QAction* m_quitAction = nullptr;
    QAction* m_darkAction = nullptr;
    QAction* m_lightAction = nullptr;
    QAction* m_pluginsAction = nullptr;
    QPushButton* m_foreground = nullptr;
    QPushButton* m_background = nullptr;
    QLabel* m_gradient = nullptr;
    QLabel* m_profileLabel = nullptr;
    QComboBox* m_profiles = nullptr;
    QLabel* m_patternLabel = nullptr;
    QComboBox* m_patterns = nullptr;
};
