#import "FoundationClock.h"

#import <Foundation/Foundation.h>

namespace tessel {

Date FoundationClock::now() const
{
    return NSDate.date.timeIntervalSince1970;
}

} // namespace tessel
