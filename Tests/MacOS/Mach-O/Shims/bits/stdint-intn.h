// In place of the C library's: Darwin's 64-bit type is `long long`, and overloads and mangled names depend on it.
#pragma once

typedef __INT8_TYPE__ int8_t;
typedef __INT16_TYPE__ int16_t;
typedef __INT32_TYPE__ int32_t;
typedef __INT64_TYPE__ int64_t;
