#include "MZExportResolutions.h"

#include "private/MZExportResolutions_p.h"

MZExportResolutions::MZExportResolutions()
    : d(new Private(this))
{}

MZExportResolutions::~MZExportResolutions() = default;

MZExportResolutions* MZExportResolutions::GetInstance()
{
    return Private::m_pInstance;
}

QList<QSize> MZExportResolutions::GetList()
{
    const Private* d = Private::Instance();
    return d ? d->m_list : QList<QSize>();
}

int MZExportResolutions::GetSize()
{
    const Private* d = Private::Instance();
    return d ? d->m_list.size() : -1;
}

void MZExportResolutions::Add(int index, const QSize& size)
{
    if (Private* d = Private::Instance())
        d->Add(index, size);
}

int MZExportResolutions::Add(const QSize& size)
{
    Private* d = Private::Instance();
    return d ? d->Add(size) : -1;
}

void MZExportResolutions::Remove(int index)
{
    if (Private* d = Private::Instance())
        d->Remove(index);
}

void MZExportResolutions::Set(int index, const QSize& size)
{
    if (Private* d = Private::Instance())
        d->Set(index, size);
}

QSize MZExportResolutions::Get(int index)
{
    const Private* d = Private::Instance();
    return d ? d->Get(index) : QSize(-1, -1);
}
