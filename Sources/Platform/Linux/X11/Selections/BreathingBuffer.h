#pragma once

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

    bool isSequential() const override { return false; }
    qint64 size() const override { return static_cast<qint64>(bytes_.size()); }
    bool isStopped() const { return isStopped_; }
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
    std::size_t bytesSinceBreath_ = 0;
    bool isStopped_ = false;
    bool isExhausted_ = false;
    bool hasComeShort_ = false;
};

} // namespace tessel
