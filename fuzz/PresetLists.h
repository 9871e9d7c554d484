#pragma once

#include "private/MZExportResolutions_p.h"
#include "private/MZExportSizes_p.h"

// The preset lists let one class start, load, write and release them: the
// application object. The targets that drive the lists build their sources
// without the rest of the library, and this stand-in takes its place.
class KVApplication
{
public:
    template <typename List> static void Load(const QString& file)
    {
        List::Private::InitInstance();
        List::Private::Load(file);
    }

    template <typename List> static void Sync() { List::Private::Instance()->Sync(); }

    template <typename List> static void Release() { List::Private::ReleaseInstance(); }

    static QSize SizeFromString(const QString& text)
    {
        return MZExportResolutions::Private::SizeFromString(text);
    }

    static QString SizeToString(const QSize& size)
    {
        return MZExportResolutions::Private::SizeToString(size);
    }
};
