#pragma once

#import <Foundation/Foundation.h>

NS_ASSUME_NONNULL_BEGIN

@protocol SPUUpdaterDelegate;
@protocol SPUStandardUserDriverDelegate;

@interface SPUStandardUpdaterController : NSObject
- (instancetype)initWithStartingUpdater:(BOOL)startUpdater
                        updaterDelegate:(nullable id<SPUUpdaterDelegate>)updaterDelegate
                     userDriverDelegate:(nullable id<SPUStandardUserDriverDelegate>)userDriverDelegate;
- (void)checkForUpdates:(nullable id)sender;
@end

NS_ASSUME_NONNULL_END
