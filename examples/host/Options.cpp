#include "Options.h"

HostOptions HostOptions::Parse(const QStringList& arguments)
{
    HostOptions options;
    QStringList rest;
    for (const QString& argument : arguments) {
        if (argument == QLatin1String("--json"))
            options.json = true;
        else if (argument == QLatin1String("--safe-mode"))
            options.safeMode = true;
        else if (argument == QLatin1String("--retry-plugins"))
            options.retryPlugins = true;
        else if (argument == QLatin1String("--help") || argument == QLatin1String("-h"))
            options.mode = Help;
        else
            rest.append(argument);
    }
    if (options.mode == Help)
        return options;
    const QString mode = rest.value(0);
    if (mode == QLatin1String("--report")) {
        options.mode = Report;
        options.images = rest.mid(1);
    } else if (mode == QLatin1String("--self-test")) {
        options.mode = SelfTest;
        options.exportFolder = rest.value(1);
        options.images = rest.mid(2);
        if (options.exportFolder.isEmpty())
            options.error = QStringLiteral("--self-test needs a folder to export into");
    } else if (!rest.isEmpty()) {
        options.error = QStringLiteral("unknown argument \"%1\"").arg(mode);
    }
    if (options.json && options.mode != Report)
        options.error = QStringLiteral("--json goes with --report");
    return options;
}

QString HostOptions::Usage()
{
    return QStringLiteral(
        "usage: Pelkaro [--safe-mode] [--retry-plugins]\n"
        "       Pelkaro --report [--json] [--safe-mode] [--retry-plugins] [image...]\n"
        "       Pelkaro --self-test FOLDER [--safe-mode] [--retry-plugins] [image...]\n"
        "\n"
        "  (no mode)        the editor's window\n"
        "  --report         no window: explains every file of the plug-in folders, what each\n"
        "                   loaded file contributed and why a file did not load, the image\n"
        "                   groups and dialog filters, and opens the images given (exit\n"
        "                   status 1 when one cannot be opened)\n"
        "  --json           the report as one JSON document\n"
        "  --self-test      the window, driven once through open, adjust, export into\n"
        "                   FOLDER, the Plug-ins dialog, and quit (PELKARO_SCREENSHOT=file.png\n"
        "                   saves pictures of the window and of the dialog, file-plugins.png)\n"
        "  --safe-mode      loads only the plug-ins that ship with the host\n"
        "  --retry-plugins  takes back every plug-in skipped after it crashed a start, and\n"
        "                   loads it again\n"
        "\n"
        "A plug-in that crashed the last start while it loaded is named at the next one; the\n"
        "window offers to start without it, --report and --self-test start without it unless\n"
        "--retry-plugins is given. Skipped plug-ins stay skipped until taken back (here, or\n"
        "with Take Back in Help > Plug-ins).\n");
}
