#pragma once

#include <stdint.h>

typedef uint32_t CC_LONG;
enum { CC_SHA256_DIGEST_LENGTH = 32 };
typedef struct CC_SHA256state_st {
    CC_LONG count[2];
    CC_LONG hash[8];
    CC_LONG wbuf[16];
} CC_SHA256_CTX;

extern "C" {
int CC_SHA256_Init(CC_SHA256_CTX* context);
int CC_SHA256_Update(CC_SHA256_CTX* context, const void* data, CC_LONG length);
int CC_SHA256_Final(unsigned char* digest, CC_SHA256_CTX* context);
}
