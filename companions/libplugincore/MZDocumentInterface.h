#pragma once

#include "kvplugincore_export.h"

/// An open document as the document layer knows it. The core library only
/// passes pointers of this type between the document layer and its callbacks.
class KVPLUGINCORE_EXPORT MZDocumentInterface
{
public:
    /// Out of line, so that the interface has one type identity across libraries.
    virtual ~MZDocumentInterface();
};
