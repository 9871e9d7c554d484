#pragma once

#include "BasicTool.h"

class QCheckBox;
class QLabel;
class QSpinBox;

// Moves the selected layer; its option picks the layer under the pointer.
class MoveTool : public BasicTool
{
    Q_OBJECT
public:
    MoveTool();

protected:
    QString GetName() const override;
    QKeySequence GetShortcut() const override;
    QWidget* CreateToolBarWidget() override;
    QWidget* CreatePanelWidget() override;
    void Retranslate() override;
    void SaveSettings() override;

private:
    QCheckBox* m_autoSelect = nullptr;
    QLabel* m_help = nullptr;
};

// Paints with the main brush plug-in's tip at the size and hardness of its
// options; its panel shows that tip as the brush factory makes it.
class BrushTool : public BasicTool
{
    Q_OBJECT
public:
    BrushTool();

protected:
    QString GetName() const override;
    QKeySequence GetShortcut() const override;
    QWidget* CreateToolBarWidget() override;
    QWidget* CreatePanelWidget() override;
    void Retranslate() override;
    void OnInEffect() override;
    void SaveSettings() override;

private:
    void UpdatePreview();

    QLabel* m_sizeLabel = nullptr;
    QSpinBox* m_size = nullptr;
    QLabel* m_hardnessLabel = nullptr;
    QSpinBox* m_hardness = nullptr;
    QLabel* m_brushName = nullptr;
    QLabel* m_preview = nullptr;
};

// Scrolls the image. Holding Space in the window that shows the tool areas
// makes it the tool in effect for a while (a temporary tool), unless the
// keyboard focus is in a text field or a modal dialog is open; releasing
// Space hands back to the selected tool.
class HandTool : public BasicTool
{
    Q_OBJECT
public:
    HandTool();
    ~HandTool() override;

protected:
    QString GetName() const override;
    QKeySequence GetShortcut() const override;
    QWidget* CreateToolBarWidget() override;
    QWidget* CreatePanelWidget() override;
    void Retranslate() override;
    void SaveSettings() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool SpaceIsForTools() const;
    bool OnSpace(bool pressed, bool autoRepeat);

    QCheckBox* m_scrollAll = nullptr;
    QLabel* m_help = nullptr;
    bool m_temporary = false;
};
