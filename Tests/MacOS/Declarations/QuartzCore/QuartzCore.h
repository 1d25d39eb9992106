#pragma once

#import <Foundation/Foundation.h>

NS_ASSUME_NONNULL_BEGIN

typedef NSString* CALayerCornerCurve;
FOUNDATION_EXPORT CALayerCornerCurve const kCACornerCurveContinuous API_AVAILABLE_MACOS(10.15);

@interface CALayer : NSObject
@property CGFloat cornerRadius;
@property(copy) CALayerCornerCurve cornerCurve API_AVAILABLE_MACOS(10.15);
@property BOOL masksToBounds;
@end

NS_ASSUME_NONNULL_END
