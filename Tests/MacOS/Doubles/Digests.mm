#include <CommonCrypto/CommonDigest.h>

#include <map>
#include <string>

#include <openssl/sha.h>

#import "Doubles/Message.h"
#import "Doubles/Reply.h"

using namespace tessel::test;

namespace {

/// What the contexts have been given. The digest is a real one, by libcrypto.
std::map<CC_SHA256_CTX*, std::string>& contexts()
{
    static auto* table = new std::map<CC_SHA256_CTX*, std::string>;
    return *table;
}

} // namespace

extern "C" {

int CC_SHA256_Init(CC_SHA256_CTX* context)
{
    contexts()[context].clear();
    return static_cast<int>(Reply(call("CC_SHA256_Init", Word{"context"})).integer());
}

int CC_SHA256_Update(CC_SHA256_CTX* context, const void* data, CC_LONG length)
{
    contexts().at(context).append(static_cast<const char*>(data), length);
    return static_cast<int>(Reply(call("CC_SHA256_Update", Word{"context"}, Word{"data"}, length)).integer());
}

int CC_SHA256_Final(unsigned char* digest, CC_SHA256_CTX* context)
{
    const std::string bytes = contexts().extract(context).mapped();
    SHA256(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size(), digest);
    return static_cast<int>(Reply(call("CC_SHA256_Final", Word{"digest"}, Word{"context"})).integer());
}
}
