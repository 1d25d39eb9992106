#pragma once

namespace tessel {

/// While an object lives, the toolkit says nothing on this thread. Its decoders complain about every broken
/// picture, in several categories and in none; each copy of such a picture would put lines into the journal.
class ToolkitSilence {
public:
    ToolkitSilence();
    ~ToolkitSilence();
    ToolkitSilence(const ToolkitSilence&) = delete;
    ToolkitSilence& operator=(const ToolkitSilence&) = delete;

    /// Makes it possible: once for the process, before any other thread decodes. Everything else that is said
    /// goes where it went before.
    static void prepare();

private:
    bool wasSilent_;
};

} // namespace tessel
