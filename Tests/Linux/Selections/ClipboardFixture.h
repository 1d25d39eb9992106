#pragma once

#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "FakeDisplay.h"

namespace tessel {

/// A coordinator on a display of its own, and what it has reported.
class ClipboardFixture {
public:
    struct Report {
        WriteGeneration generation;
        ReceivedValue received;
    };

    ClipboardFixture()
        : coordinator(display, display.atoms)
    {
        display.coordinator = &coordinator;
        coordinator.onValue = [this](WriteGeneration generation, ReceivedValue value) {
            reports.push_back({generation, std::move(value)});
        };
        coordinator.onSuperseded = [this] { ++supersededCount; };
        coordinator.onPictureWanted = [this](SelectionServer::SharedOffer offer, AtomID target) {
            wantedPictures.emplace_back(std::move(offer), target);
        };
    }

    const SelectionAtoms& atoms() const { return display.atoms; }

    void writeText(WriteGeneration generation, std::string text)
    {
        auto value = std::make_shared<SelectionValue>();
        value->text = std::make_shared<const std::string>(std::move(text));
        coordinator.write(generation, std::move(value), display.now);
    }

    /// Asks us for a target and takes the whole answer, whichever way it comes. None: refused, or nothing
    /// came.
    std::optional<FakeProperty> paste(AtomID selection, AtomID target)
    {
        const WindowID window = display.createForeignWindow();
        constexpr AtomID property = 9999;
        display.notices.clear();
        display.request(window, selection, target, property);
        display.deliverAll();
        if (display.notices.empty() || display.notices.front().property != property)
            return std::nullopt;
        auto value = display.takeProperty(window, property);
        if (!value || value->type != atoms().incr)
            return value;
        FakeProperty whole;
        while (true) {
            display.deliverAll();
            const auto piece = display.takeProperty(window, property);
            if (!piece)
                return std::nullopt;
            whole.type = piece->type;
            whole.format = piece->format;
            if (piece->bytes.empty())
                break;
            whole.bytes += piece->bytes;
        }
        display.deliverAll();
        return whole;
    }

    FakeDisplay display;
    SelectionCoordinator coordinator;
    std::vector<Report> reports;
    std::vector<std::pair<SelectionServer::SharedOffer, AtomID>> wantedPictures;
    int supersededCount = 0;
};

} // namespace tessel
