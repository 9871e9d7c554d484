#include "MZExportSizes.h"

#include "private/MZExportSizes_p.h"

MZExportSizes::MZExportSizes()
    : d(new Private(this))
{}

MZExportSizes::~MZExportSizes() = default;

MZExportSizes* MZExportSizes::GetInstance()
{
    return Private::m_pInstance;
}

QList<long long> MZExportSizes::GetList()
{
    const Private* d = Private::Instance();
    return d ? d->m_list : QList<long long>();
}

int MZExportSizes::GetSize()
{
    const Private* d = Private::Instance();
    return d ? d->m_list.size() : -1;
}

void MZExportSizes::Add(int index, long long size)
{
    if (Private* d = Private::Instance())
        d->Add(index, size);
}

int MZExportSizes::Add(long long size)
{
    Private* d = Private::Instance();
    return d ? d->Add(size) : -1;
}

void MZExportSizes::Remove(int index)
{
    if (Private* d = Private::Instance())
        d->Remove(index);
}

void MZExportSizes::Set(int index, long long size)
{
    if (Private* d = Private::Instance())
        d->Set(index, size);
}

long long MZExportSizes::Get(int index)
{
    const Private* d = Private::Instance();
    return d ? d->Get(index) : -1;
}
