#include "TestSupport.h"

// Work in progress.
class Placeholder : public QObject
{
    Q_OBJECT
};

KV_TEST_MAIN(Placeholder)
#include "tst_recentmanager.moc"
