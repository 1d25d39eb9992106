#pragma once

#include <QtCore/QByteArray>

namespace tessel {

/// The length of an Ed25519 public key, in bytes.
inline constexpr qsizetype feedKeySize = 32;

/// True where `signature`, in base64 (RFC 4648), with white space around it, is the Ed25519 signature (RFC
/// 8032) of exactly these bytes by the owner of that public key.
bool isSigned(const QByteArray& content, const QByteArray& signature, const QByteArray& publicKey);

} // namespace tessel
