// libbasictools: the Move, Brush and Hand tools. The window finds their
// actions through KVToolPlugin::GetToolPlugins(); the tools show their own
// widgets in the tool bar and tool panel areas. Once the window stands the
// Move tool is selected, unless a tool already is.

#include "Tools.h"

#include <IPluginContainer.h>
#include <KVToolGroupManager.h>

class BasicToolsContainer : public QObject, public IPluginContainer
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID IPluginContainer_iid)
    Q_INTERFACES(IPluginContainer)
public:
    void Initialize() override
    {
        // A second load of the same file reaches the same container.
        if (!m_tools.isEmpty())
            return;
        m_tools = {new MoveTool, new BrushTool, new HandTool};
        for (BasicTool* tool : qAsConst(m_tools))
            tool->Install();
    }

    void Release() override
    {
        qDeleteAll(m_tools);
        m_tools.clear();
    }

    void UIReady() override
    {
        if (!m_tools.isEmpty() && !KVToolGroupManager::GetExplicitAction())
            m_tools.first()->Select();
    }

    QList<KVPlugin*> GetPlugins() override
    {
        QList<KVPlugin*> plugins;
        for (BasicTool* tool : qAsConst(m_tools))
            plugins.append(tool);
        return plugins;
    }

private:
    QList<BasicTool*> m_tools;
};

#include "BasicToolsContainer.moc"
