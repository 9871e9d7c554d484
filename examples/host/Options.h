#pragma once

#include <QString>
#include <QStringList>

// The sample host's command line.
struct HostOptions
{
    enum Mode
    {
        Window,   // the editor's window
        Report,   // --report [image...]: explains the plug-ins, no window
        SelfTest, // --self-test FOLDER [image...]: the window, driven once
        Help,     // --help
    };

    Mode mode = Window;
    bool json = false;         // --json: the report as one JSON document
    bool safeMode = false;     // --safe-mode: only the plug-ins that ship with the host
    bool retryPlugins = false; // --retry-plugins: takes back every skipped plug-in
    QString exportFolder;
    QStringList images;
    QString error; // not empty when the command line makes no sense

    // arguments: without the program's name.
    static HostOptions Parse(const QStringList& arguments);
    static QString Usage();
};
