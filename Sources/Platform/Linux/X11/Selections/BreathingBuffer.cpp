#include "X11/Selections/BreathingBuffer.h"

#include <algorithm>
#include <cstring>

namespace tessel {

namespace {

/// An encoded byte stands for many decoded ones, so the breaths come more often than among decoded bytes.
constexpr std::size_t encodedBytesBetweenBreaths = std::size_t{8} << 10;

} // namespace

BreathingBuffer::BreathingBuffer(std::string_view bytes, const Breath& breath)
    : bytes_(bytes)
    , breath_(breath)
{
    // The toolkit's own buffering would hold a second copy of what is in memory anyway.
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

qint64 BreathingBuffer::readData(char* destination, qint64 length)
{
    const auto position = static_cast<std::size_t>(pos());
    isExhausted_ = isExhausted_ || position >= bytes_.size();
    hasComeShort_ = hasComeShort_ || position + static_cast<std::size_t>(length) > bytes_.size();
    if (isStopped_ || position >= bytes_.size() || length <= 0)
        return 0;
    const std::size_t count = std::min(static_cast<std::size_t>(length), bytes_.size() - position);
    bytesSinceBreath_ += count;
    if (bytesSinceBreath_ >= encodedBytesBetweenBreaths && breath_) {
        bytesSinceBreath_ = 0;
        isStopped_ = !breath_();
    }
    if (isStopped_)
        return 0;
    std::memcpy(destination, bytes_.data() + position, count);
    if (replacement_ && replacement_->offset >= position && replacement_->offset - position < count)
        destination[replacement_->offset - position] = replacement_->byte;
    return static_cast<qint64>(count);
}

} // namespace tessel
