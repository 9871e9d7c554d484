#pragma once

#include "HostSession.h"

#include <KVApplication.h>

#include <QJsonObject>
#include <QList>
#include <QString>
#include <QStringList>

#include <vector>

// What every plug-in file gave the editor, and why a file gave nothing: the
// one account that --report prints as text, --report --json as one JSON
// document, and the Plug-ins dialog shows.
namespace PluginDoctor {

// One line of what a file contributed.
struct Contribution
{
    enum Kind
    {
        ImageFormats,    // text: "<plug-in UID>: <suffix> <suffix>..."
        ImageGroup,      // text: "<group UID> \"<name>\": <suffix>..."
        Adjustment,      // text: "<identifier> \"<name>\"" (", not registered")
        Brush,           // text: "<UID> \"<name>\"" (", main brush")
        BrushFactory,    // text: "of <n> brushes: \"<name>\"..."
        Tool,            // text: "<UID> \"<action>\"..."
        UndefinedSymbol, // text: "<symbol>: <demangled>"
    };
    Kind kind;
    QString text;
};

struct ImageGroup
{
    QString uid;
    QString name;
    QStringList formats;
};

struct ImageFormats
{
    QString uid;
    QStringList formats;
    QList<ImageGroup> groups;
};

struct Named
{
    QString id;
    QString name;
    bool flag = false; // an adjustment: registered; a brush: the main brush
};

// One load attempt.
struct File
{
    QString path;
    QString status; // "loaded", "failed", "missing" or "not loaded"
    QString error;  // the record's text: "Plugin OK." or why it failed
    qint32 milliseconds = 0;
    QString undefinedSymbol; // as the error names it, mangled
    QString demangledSymbol;
    QList<ImageFormats> imageFormats;
    QList<Named> adjustments;
    QList<Named> brushes;
    QList<Named> tools; // name: the action texts, joined by ", "
    bool brushFactory = false;
    QList<Named> factoryBrushes;
};

struct Account
{
    std::vector<KVApplication::PluginScanEntry> scan;
    QList<File> files;
    QList<HostSession::LeftOut> leftOut;
    QStringList skipped;
    QString crashedLastStart;
    bool safeMode = false;
};

// The account of the session's last loading, from the library's records.
Account Collect(const KVApplication& app, const HostSession& session);

// The symbol that an "undefined symbol: X" error names, or empty; and its
// readable form (the symbol itself when it is no C++ name).
QString UndefinedSymbol(const QString& error);
QString Demangle(const QString& symbol);

QList<Contribution> Contributions(const File& file);
// Why a file was left out, as the report prints it.
QString LeftOutText(const HostSession::LeftOut& leftOut);
// The line naming the file that crashed the last start.
QString CrashLine(const QString& file, bool skipped);

// The report's lines for the scan, printed before loading.
QStringList ScanLines(const std::vector<KVApplication::PluginScanEntry>& scan);
// The report's lines after loading: the files left out, each load record
// with its contributions, the skipped files.
QStringList LoadLines(const Account& account);
// The same as JSON: "safeMode", "crashedLastStart", "scan", "leftOut",
// "files", "skipped".
QJsonObject ToJson(const Account& account);

} // namespace PluginDoctor
