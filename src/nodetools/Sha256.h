#ifndef KAMO_TOOLS_SHA256_H
#define KAMO_TOOLS_SHA256_H

#include <QByteArray>

#include <memory>

// SHA-256 through libcrypto, which uses the processor's hash instructions
// where it has them: about ten times the speed of QCryptographicHash, which
// decides whether a backup costs noticeably more than the copy itself.
class Sha256
{
public:
    Sha256();
    ~Sha256();
    Sha256(const Sha256&) = delete;
    Sha256& operator=(const Sha256&) = delete;

    void Add(const char* data, qint64 size);
    // The digest of everything added since construction or the last Result(),
    // in lower-case hex; starts a new digest.
    QByteArray Result();

    static QByteArray Hash(const QByteArray& bytes);

private:
    struct Context;
    std::unique_ptr<Context> context;
};

#endif
