#pragma once

#include <stdint.h>

typedef void (^dispatch_block_t)(void);
typedef struct dispatch_queue_s* dispatch_queue_t;
typedef uint64_t dispatch_time_t;

#define NSEC_PER_SEC 1000000000ull
#define DISPATCH_TIME_NOW (0ull)

extern "C" {
extern struct dispatch_queue_s _dispatch_main_q;
void dispatch_async(dispatch_queue_t queue, dispatch_block_t block);
dispatch_time_t dispatch_time(dispatch_time_t when, int64_t nanoseconds);
void dispatch_after(dispatch_time_t when, dispatch_queue_t queue, dispatch_block_t block);
}

static inline dispatch_queue_t dispatch_get_main_queue(void)
{
    return &_dispatch_main_q;
}
