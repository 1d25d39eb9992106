#pragma once

#include <optional>
#include <string_view>

#include <QIODevice>

#include "X11/Selections/PictureRows.h"

namespace tessel {

/// Encoded bytes as the toolkit's decoders read them. They read piece by piece and know nothing of other
/// work, so it gets its turn between the pieces; giving up looks like the end of the data to them.
class BreathingBuffer final : public QIODevice {
public:
    /// Both must outlive the buffer.
    BreathingBuffer(std::string_view bytes, const Breath& breath);

    /// From now on the byte at `offset` reads as `byte`.
    void replace(std::size_t offset, char byte) { replacement_ = {offset, byte}; }

    bool isSequential() const override { return false; }
    qint64 size() const override { return static_cast<qint64>(bytes_.size()); }
    bool isStopped() const { return isStopped_; }
    /// Forgets what has been asked for so far, for a decoder that has looked through the picture beforehand.
    void forgetReads() { isExhausted_ = hasComeShort_ = false; }
    /// Whether more was asked for when everything had been read: a decoder that does so misses the end of its
    /// picture.
    bool isExhausted() const { return isExhausted_; }
    /// Whether less was there than was asked for, at any time.
    bool hasComeShort() const { return hasComeShort_; }

protected:
    qint64 readData(char* destination, qint64 length) override;
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    std::string_view bytes_;
    const Breath& breath_;
    struct Replacement {
        std::size_t offset;
        char byte;
    };
    std::optional<Replacement> replacement_;
    std::size_t bytesSinceBreath_ = 0;
    bool isStopped_ = false;
    bool isExhausted_ = false;
    bool hasComeShort_ = false;
};

} // namespace tessel
