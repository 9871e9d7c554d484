// A valid Qt plug-in whose root object offers another interface.

#include <QObject>
#include <QtPlugin>

class OtherInterfacePlugin : public QObject
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.example.OtherInterface/1.0")
};

#include "OtherInterfacePlugin.moc"
