#pragma once

#include <functional>
#include <memory>
#include <string>

#include "Pasteboard.h"

namespace tessel {

/// `NSPasteboard.generalPasteboard`. A value that carries the type `org.nspasteboard.ConcealedType` or
/// `org.nspasteboard.TransientType` is reported as neither string nor image.
class AppKitPasteboard final : public Pasteboard {
public:
    /// The content identity of an image, computed once, when the image is read.
    using FingerprintImage = std::function<std::string(const PlatformImage&)>;

    explicit AppKitPasteboard(FingerprintImage fingerprintImage);
    ~AppKitPasteboard() override;

    std::int64_t changeCount() const override;
    SharedText string() const override;
    SharedImage image() const override;
    void clearContents() override;
    /// A text that is no UTF-8 is not written.
    void setString(SharedText text) override;
    /// Only images that this pasteboard has read are written.
    void writeObjects(SharedImage image) override;

private:
    struct Native;

    /// Marked by the application that wrote it as nothing to be kept.
    bool isSecret() const;

    std::unique_ptr<Native> native_;
    FingerprintImage fingerprintImage_;
};

} // namespace tessel
