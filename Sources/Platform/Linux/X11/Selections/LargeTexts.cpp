#include "X11/Selections/LargeTexts.h"

#include "DistinctText.h"

namespace tessel {

SharedText LargeTexts::equalTo(const std::string& text) const
{
    for (const auto& weakText : texts_) {
        const SharedText present = weakText.lock();
        if (present && *present == text)
            return present;
    }
    return nullptr;
}

SharedText LargeTexts::added(SharedText text)
{
    std::erase_if(texts_, [](const auto& weakText) { return weakText.expired(); });
    SharedText marked = DistinctText::marked(std::move(text), this);
    texts_.push_back(marked);
    return marked;
}

} // namespace tessel
