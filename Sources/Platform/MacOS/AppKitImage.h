#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "PlatformImage.h"

namespace tessel {

/// An `NSImage` from the pasteboard.
class AppKitImage final : public PlatformImage {
public:
    struct Native;

    explicit AppKitImage(std::unique_ptr<Native> native);
    ~AppKitImage() override;

    std::unique_ptr<TIFFData> tiffRepresentation() const override;
    Size size() const override;
    const std::optional<std::string>& preparedFingerprint() const override { return fingerprint_; }
    /// Drawn on the first call.
    const Thumbnail& thumbnail() const override;

    /// Before the image is shared.
    void prepareFingerprint(std::string fingerprint) { fingerprint_ = std::move(fingerprint); }

    const Native& native() const { return *native_; }

private:
    std::unique_ptr<Native> native_;
    std::optional<std::string> fingerprint_;
    mutable std::optional<Thumbnail> thumbnail_;
};

} // namespace tessel
