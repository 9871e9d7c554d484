#include "MZExportResolutions_p.h"

MZExportResolutions* MZExportResolutions::Private::m_pInstance = nullptr;

QSize MZExportResolutions::Private::SizeFromString(const QString& text)
{
    const QStringList parts = QString(text).remove(QLatin1Char(' ')).split(QLatin1Char('x'));
    if (parts.size() != 2)
        return QSize(-1, -1);
    const int width = parts.at(0).toInt();
    const int height = parts.at(1).toInt();
    const auto inRange = [](int side) { return side >= 1 && side <= 10000; };
    return inRange(width) && inRange(height) ? QSize(width, height) : QSize(-1, -1);
}

QString MZExportResolutions::Private::SizeToString(const QSize& size)
{
    return QStringLiteral("%1x%2").arg(size.width()).arg(size.height());
}
