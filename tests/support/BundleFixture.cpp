#include "BundleFixture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include <unistd.h>

namespace {
const QString kProgramName = QStringLiteral("Pelkaro");
const QString kLogPrefix = QStringLiteral("log=");

bool PlaceProgram(const QString& target)
{
    const QString source = QStringLiteral(KV_SCENARIO_EXE);
    // The application folder comes from /proc/self/exe, which resolves symbolic
    // links: only a hard link or a copy makes the program live in the bundle.
    if (::link(QFile::encodeName(source).constData(), QFile::encodeName(target).constData()) == 0)
        return true;
    return QFile::copy(source, target);
}
} // namespace

QString BundleFixture::Result::Value(const QString& key) const
{
    const QStringList values = Values(key);
    return values.isEmpty() ? QString() : values.first();
}

QStringList BundleFixture::Result::Values(const QString& key) const
{
    const QString prefix = key + QLatin1Char('=');
    QStringList values;
    for (const QString& line : output) {
        if (line.startsWith(prefix))
            values.append(line.mid(prefix.size()));
    }
    return values;
}

BundleFixture::BundleFixture(bool withResources)
    : m_root(QDir::tempPath() + QStringLiteral("/kvbundle-XXXXXX"))
    , m_environment(QProcessEnvironment::systemEnvironment())
{
    QDir root(m_root.path());
    m_valid = m_root.isValid() && root.mkpath(MacOSPath()) && root.mkpath(HomePath()) &&
              (!withResources || root.mkpath(ResourcesPath())) &&
              PlaceProgram(MacOSPath() + QLatin1Char('/') + kProgramName);
    m_environment.insert(QStringLiteral("HOME"), HomePath());
    m_environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
}

QString BundleFixture::ContentsPath() const
{
    return m_root.path() + QStringLiteral("/Pelkaro.app/Contents");
}

QString BundleFixture::MacOSPath() const
{
    return ContentsPath() + QStringLiteral("/MacOS");
}

QString BundleFixture::ResourcesPath() const
{
    return ContentsPath() + QStringLiteral("/Resources");
}

QString BundleFixture::HomePath() const
{
    return m_root.path() + QStringLiteral("/home");
}

void BundleFixture::MakeFolder(const QString& relative) const
{
    QDir().mkpath(ContentsPath() + QLatin1Char('/') + relative);
}

void BundleFixture::WriteFile(const QString& relative, const QByteArray& data) const
{
    const QString path = ContentsPath() + QLatin1Char('/') + relative;
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(data);
}

void BundleFixture::CopyFile(const QString& source, const QString& relative) const
{
    const QString path = ContentsPath() + QLatin1Char('/') + relative;
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile::remove(path);
    QFile::copy(source, path);
}

void BundleFixture::SetEnvironment(const QString& name, const QString& value)
{
    m_environment.insert(name, value);
}

BundleFixture::Result BundleFixture::RunScenario(const QString& scenario,
                                                 const QStringList& arguments) const
{
    Result result;
    QProcess process;
    process.setProcessEnvironment(m_environment);
    process.setWorkingDirectory(m_root.path());
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(MacOSPath() + QLatin1Char('/') + kProgramName, QStringList{scenario} + arguments);
    if (!process.waitForFinished(120000)) {
        process.kill();
        process.waitForFinished();
        return result;
    }
    result.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    const QString text = QString::fromUtf8(process.readAllStandardOutput());
    for (const QString& line : text.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        if (line.startsWith(kLogPrefix))
            result.log.append(line.mid(kLogPrefix.size()));
        else
            result.output.append(line);
    }
    return result;
}
