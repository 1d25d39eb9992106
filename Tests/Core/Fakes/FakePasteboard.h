#pragma once

#include <memory>
#include <string>
#include <utility>

#include "Fakes/CallLog.h"
#include "Pasteboard.h"

namespace tessel::test {

/// A pasteboard that other applications write through the `...FromElsewhere` operations. A write of ours
/// without a preceding clear fails the test.
class FakePasteboard final : public Pasteboard {
public:
    explicit FakePasteboard(std::shared_ptr<CallLog> log)
        : log_(std::move(log))
    {}

    /// @name What another application does. Each counts as one change.
    /// @{
    void copyFromElsewhere(std::string text);
    void copyFromElsewhere(SharedImage image);
    /// One value in two forms.
    void copyFromElsewhere(std::string text, SharedImage image);
    /// A value that is neither a string nor an image, for instance a file promise or a secret.
    void copyUnreadableFromElsewhere();
    /// @}

    /// The system's counter starts anew: it goes back.
    void restartChangeCount() { changeCount_ = 0; }

    /// Null: none.
    const SharedText& textOnBoard() const { return text_; }
    const SharedImage& imageOnBoard() const { return image_; }
    /// How often a value has been looked at.
    int valueReads() const { return valueReads_; }

    std::int64_t changeCount() const override;
    SharedText string() const override;
    SharedImage image() const override;
    void clearContents() override;
    void setString(SharedText text) override;
    void writeObjects(SharedImage image) override;

private:
    void change(SharedText text, SharedImage image);
    void expectClearedForWriting();

    std::shared_ptr<CallLog> log_;
    std::int64_t changeCount_ = 41;
    SharedText text_;
    SharedImage image_;
    bool isClearedForWriting_ = false;
    mutable int valueReads_ = 0;
};

} // namespace tessel::test
