// The bookmark store on Apple platforms: security-scoped bookmarks in the
// standard user defaults, resolved afresh for every start and stop of access.
// Written for manual reference counting and ARC alike: every object here is
// autoreleased, and every call drains its own pool.

#include "KVFileBookmark_p.h"

#import <Foundation/Foundation.h>

namespace {
NSString* const kRecentFilesKey = @"Recent files";
NSString* const kSandboxVariable = @"APP_SANDBOX_CONTAINER_ID";

NSString* ToNSString(const QString& text) {
    return [NSString stringWithUTF8String:text.toUtf8().constData()];
}

// The URL of the file's stored bookmark, or nil. Staleness is not asked for:
// a stale bookmark still grants access and is not renewed.
NSURL* ResolveStoredBookmark(const QString& absolutePath) {
    NSUserDefaults* defaults = [NSUserDefaults standardUserDefaults];
    if (!defaults)
        return nil;
    NSDictionary* bookmarks = [defaults dictionaryForKey:kRecentFilesKey];
    if (!bookmarks)
        return nil;
    // Anything but data under the path would make NSURL raise.
    id data = [bookmarks objectForKey:ToNSString(absolutePath)];
    if (![data isKindOfClass:[NSData class]])
        return nil;
    return [NSURL URLByResolvingBookmarkData:data
                                     options:NSURLBookmarkResolutionWithSecurityScope
                               relativeToURL:nil
                         bookmarkDataIsStale:nullptr
                                       error:nullptr];
}
} // namespace

bool KVBookmarkStore::IsSandbox() {
    @autoreleasepool {
        NSDictionary* environment = [[NSProcessInfo processInfo] environment];
        return environment && [environment objectForKey:kSandboxVariable] != nil;
    }
}

bool KVBookmarkStore::StartAccess(const QString& absolutePath) {
    @autoreleasepool {
        NSURL* url = ResolveStoredBookmark(absolutePath);
        return url && [url startAccessingSecurityScopedResource];
    }
}

bool KVBookmarkStore::StopAccess(const QString& absolutePath) {
    @autoreleasepool {
        NSURL* url = ResolveStoredBookmark(absolutePath);
        if (!url)
            return false;
        [url stopAccessingSecurityScopedResource];
        return true;
    }
}

void KVBookmarkStore::Add(const QString& absolutePath) {
    @autoreleasepool {
        NSUserDefaults* defaults = [NSUserDefaults standardUserDefaults];
        if (!defaults)
            return;
        NSString* path = ToNSString(absolutePath);
        NSDictionary* stored = [defaults dictionaryForKey:kRecentFilesKey];
        if (stored && [stored valueForKey:path])
            return;
        NSMutableDictionary* bookmarks = stored
                                             ? [NSMutableDictionary dictionaryWithDictionary:stored]
                                             : [NSMutableDictionary dictionary];
        NSURL* url = [NSURL fileURLWithPath:path];
        if (!url)
            return;
        NSData* data = [url bookmarkDataWithOptions:NSURLBookmarkCreationWithSecurityScope
                     includingResourceValuesForKeys:nil
                                      relativeToURL:nil
                                              error:nullptr];
        if (!data)
            return;
        [bookmarks setObject:data forKey:path];
        [defaults setObject:bookmarks forKey:kRecentFilesKey];
        [defaults synchronize];
    }
}
