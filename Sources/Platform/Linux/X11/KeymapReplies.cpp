#include "X11/KeymapReplies.h"

#include <cstring>
#include <string_view>

namespace tessel {

namespace {

/// The key in the V position, as every keycodes file of XKB names it: alphanumeric block, row B, fourth key.
constexpr std::string_view vPositionName = "AB04";

void readSymbols(const xcb_xkb_get_map_reply_t& reply, Keymap& keymap)
{
    xcb_xkb_get_map_map_t map{};
    xcb_xkb_get_map_map_unpack(xcb_xkb_get_map_map(&reply), reply.nTypes, reply.nKeySyms, reply.nKeyActions,
                               reply.totalActions, reply.totalKeyBehaviors, reply.virtualMods,
                               reply.totalKeyExplicit, reply.totalModMapKeys, reply.totalVModMapKeys,
                               reply.present, &map);
    auto keys = xcb_xkb_get_map_map_syms_rtrn_iterator(&reply, &map);
    for (std::size_t key = reply.firstKeySym; keys.rem > 0 && key < keymap.symbols.size();
         ++key, xcb_xkb_key_sym_map_next(&keys)) {
        constexpr unsigned int groupCountBits = 0x0F;
        const unsigned int groupCount = keys.data->groupInfo & groupCountBits;
        const auto* symbols = xcb_xkb_key_sym_map_syms(keys.data);
        for (unsigned int group = 0; group < groupCount; ++group) {
            const unsigned int index = group * keys.data->width;
            if (index < keys.data->nSyms)
                keymap.symbols.at(key).push_back(symbols[index]);
        }
    }
}

void readNames(const xcb_xkb_get_names_reply_t& reply, Keymap& keymap)
{
    xcb_xkb_get_names_value_list_t values{};
    xcb_xkb_get_names_value_list_unpack(xcb_xkb_get_names_value_list(&reply), reply.nTypes, reply.indicators,
                                        reply.virtualMods, reply.groupNames, reply.nKeys, reply.nKeyAliases,
                                        reply.nRadioGroups, reply.which, &values);
    auto names = xcb_xkb_get_names_value_list_key_names_iterator(&reply, &values);
    for (unsigned int key = reply.firstKey; names.rem > 0; ++key, xcb_xkb_key_name_next(&names)) {
        const std::string_view name(names.data->name, sizeof names.data->name);
        if (name == vPositionName)
            keymap.keyInVPosition = static_cast<Keycode>(key);
    }
}

void readModifiers(const xcb_get_modifier_mapping_reply_t& reply, Keymap& keymap)
{
    const auto* keycodes = xcb_get_modifier_mapping_keycodes(&reply);
    for (std::size_t modifier = 0; modifier < modifierCount; ++modifier) {
        for (std::size_t index = 0; index < reply.keycodes_per_modifier; ++index) {
            const Keycode key = keycodes[modifier * reply.keycodes_per_modifier + index];
            if (key != 0)
                keymap.modifierKeys.at(modifier).push_back(key);
        }
    }
}

} // namespace

Keymap keymapFromReplies(const xcb_xkb_get_map_reply_t* map, const xcb_xkb_get_names_reply_t* names,
                         const xcb_get_modifier_mapping_reply_t* modifiers)
{
    Keymap keymap;
    if (map != nullptr)
        readSymbols(*map, keymap);
    if (names != nullptr)
        readNames(*names, keymap);
    if (modifiers != nullptr)
        readModifiers(*modifiers, keymap);
    return keymap;
}

} // namespace tessel
