// Included (-include) only by scripts/check-objc.sh: the parts of Foundation's
// security-scoped bookmark interface that GNUstep does not declare, with the
// signatures and values of Apple's SDK, so that the Apple bookmark store can
// be compiled against GNUstep's headers on Linux.

#import <Foundation/Foundation.h>

typedef NSUInteger NSURLBookmarkCreationOptions;
enum { NSURLBookmarkCreationWithSecurityScope = (1 << 11) };

@interface NSURL (KVSecurityScopedBookmarks)
+ (instancetype)URLByResolvingBookmarkData:(NSData*)bookmarkData
                                   options:(NSURLBookmarkResolutionOptions)options
                             relativeToURL:(NSURL*)relativeURL
                       bookmarkDataIsStale:(BOOL*)isStale
                                     error:(NSError**)error;
- (NSData*)bookmarkDataWithOptions:(NSURLBookmarkCreationOptions)options
    includingResourceValuesForKeys:(NSArray*)keys
                     relativeToURL:(NSURL*)relativeURL
                             error:(NSError**)error;
- (BOOL)startAccessingSecurityScopedResource;
- (void)stopAccessingSecurityScopedResource;
@end
