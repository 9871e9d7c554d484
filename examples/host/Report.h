#pragma once

class HostSession;
class KVApplication;
struct HostOptions;

// The host without a window: explains every file of the plug-in folders,
// loads the plug-ins, prints what each loaded file contributed and why a
// file did not load, the image groups and dialog filters, and opens the
// given images through the reader pool; as text, or as one JSON document
// with --json. Returns the process's exit code: non-zero when an image could
// not be opened.
int RunReport(KVApplication& app, HostSession& session, const HostOptions& options);
