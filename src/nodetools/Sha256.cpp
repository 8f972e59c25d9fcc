#include "nodetools/Sha256.h"

#include <openssl/evp.h>

struct Sha256::Context {
    EVP_MD_CTX* md = EVP_MD_CTX_new();
    ~Context() { EVP_MD_CTX_free(md); }
};

Sha256::Sha256()
    : context(std::make_unique<Context>())
{
    EVP_DigestInit_ex(context->md, EVP_sha256(), nullptr);
}

Sha256::~Sha256() = default;

void Sha256::Add(const char* data, qint64 size)
{
    EVP_DigestUpdate(context->md, data, size_t(size));
}

QByteArray Sha256::Result()
{
    unsigned char digest[EVP_MAX_MD_SIZE];
    unsigned int length = 0;
    EVP_DigestFinal_ex(context->md, digest, &length);
    EVP_DigestInit_ex(context->md, EVP_sha256(), nullptr);
    return QByteArray(reinterpret_cast<const char*>(digest), int(length)).toHex();
}

QByteArray Sha256::Hash(const QByteArray& bytes)
{
    Sha256 hash;
    hash.Add(bytes.constData(), bytes.size());
    return hash.Result();
}
