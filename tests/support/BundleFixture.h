#pragma once

#include <QByteArray>
#include <QProcessEnvironment>
#include <QStringList>
#include <QTemporaryDir>

// A throw-away application bundle: <root>/Pelkaro.app/Contents/MacOS holds a
// copy of the scenario program, Contents/Resources the resources a test lays
// out, and <root>/home serves as HOME. RunScenario() starts the program there
// and collects what it reports.
class BundleFixture
{
public:
    struct Result
    {
        int exitCode = -1;
        QStringList output; // "key=value" lines, in order
        QStringList log;    // debug lines the program wrote, in order

        QString Value(const QString& key) const;
        QStringList Values(const QString& key) const;
    };

    // withResources: whether Contents/Resources exists.
    explicit BundleFixture(bool withResources = true);

    bool IsValid() const { return m_valid; }
    QString ContentsPath() const;
    QString MacOSPath() const;
    QString ResourcesPath() const;
    QString HomePath() const;

    // Paths relative to Contents (Resources/en.lproj, PlugIns/libx.dylib).
    void MakeFolder(const QString& relative) const;
    void WriteFile(const QString& relative, const QByteArray& data) const;
    void CopyFile(const QString& source, const QString& relative) const;

    void SetEnvironment(const QString& name, const QString& value);
    Result RunScenario(const QString& scenario, const QStringList& arguments = {}) const;

private:
    QTemporaryDir m_root;
    QProcessEnvironment m_environment;
    bool m_valid = false;
};
