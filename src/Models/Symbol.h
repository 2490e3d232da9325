#pragma once

#include <array>
#include <string_view>

namespace orvelle {

/// Every symbol that the program draws. `glyph` is the icon set's name for it; an empty one stands
/// for a drawing of our own, the file of the symbol's name in Views/Symbols. The build reads this
/// table to embed the drawings, so each row keeps its one-line form.
struct SymbolRow {
    std::string_view name;
    std::string_view glyph;
};

inline constexpr SymbolRow symbolTable[] = {
    // clang-format off
    {"airplayaudio", ""},
    {"arrow.clockwise", "arrow_clockwise"},
    {"arrow.counterclockwise", "arrow_counterclockwise"},
    {"arrow.down", "arrow_down"},
    {"arrow.down.circle.fill", "arrow_down_circle_fill"},
    {"arrow.down.doc", "arrow_down_doc"},
    {"arrow.left.and.right.righttriangle.left.righttriangle.right", ""},
    {"arrow.left.and.right.righttriangle.left.righttriangle.right.fill", ""},
    {"arrow.up", "arrow_up"},
    {"arrow.uturn.backward", "arrow_uturn_left"},
    {"backward.fill", "backward_fill"},
    {"battery.0", "battery_0"},
    {"battery.100", "battery_100"},
    {"battery.100.bolt", ""},
    {"battery.25", "battery_25"},
    {"battery.50", ""},
    {"battery.75", ""},
    {"brain.head.profile", ""},
    {"calendar", "calendar"},
    {"camera.fill", "camera_fill"},
    {"chart.line.uptrend.xyaxis", ""},
    {"checklist", ""},
    {"checkmark", "checkmark_alt"},
    {"checkmark.circle.fill", "checkmark_circle_fill"},
    {"chevron.left", "chevron_left"},
    {"chevron.left.forwardslash.chevron.right", "chevron_left_slash_chevron_right"},
    {"chevron.right", "chevron_right"},
    {"chevron.up.chevron.down", "chevron_up_chevron_down"},
    {"circle", "circle"},
    {"clipboard", ""},
    {"clock", "clock"},
    {"cloud.bolt.rain.fill", "cloud_bolt_rain_fill"},
    {"cloud.drizzle.fill", "cloud_drizzle_fill"},
    {"cloud.fill", "cloud_fill"},
    {"cloud.fog.fill", "cloud_fog_fill"},
    {"cloud.heavyrain.fill", "cloud_heavyrain_fill"},
    {"cloud.moon.fill", "cloud_moon_fill"},
    {"cloud.rain.fill", "cloud_rain_fill"},
    {"cloud.sleet.fill", "cloud_sleet_fill"},
    {"cloud.snow.fill", "cloud_snow_fill"},
    {"cloud.sun", "cloud_sun"},
    {"cloud.sun.fill", "cloud_sun_fill"},
    {"cpu", ""},
    {"cup.and.saucer", ""},
    {"doc.on.clipboard", "doc_on_clipboard"},
    {"doc.on.doc", "doc_on_doc"},
    {"doc.text", "doc_text"},
    {"envelope", "envelope"},
    {"eye", "eye"},
    {"eye.slash", "eye_slash"},
    {"folder", "folder"},
    {"forward.fill", "forward_fill"},
    {"gauge.with.dots.needle.0percent", ""},
    {"gear", "gear"},
    {"gearshape.fill", "gear_alt_fill"},
    {"hand.draw.fill", "hand_draw_fill"},
    {"hand.point.up.fill", ""},
    {"heart", "heart"},
    {"heart.fill", "heart_fill"},
    {"humidity", ""},
    {"keyboard.badge.ellipsis", ""},
    {"line.3.horizontal", "line_horizontal_3"},
    {"link", "link"},
    {"list.number", "list_number"},
    {"location.fill", "location_fill"},
    {"magnifyingglass", "search"},
    {"memorychip", ""},
    {"moon.fill", "moon_fill"},
    {"moon.stars.fill", "moon_stars_fill"},
    {"music.note", "music_note"},
    {"music.note.list", "music_note_list"},
    {"note.text", ""},
    {"number", "number"},
    {"paintbrush", "paintbrush"},
    {"pause.fill", "pause_fill"},
    {"person.crop.square", "person_crop_square"},
    {"play.fill", "play_fill"},
    {"plus.circle", "plus_circle"},
    {"plus.circle.fill", "plus_circle_fill"},
    {"power", "power"},
    {"powerplug.fill", ""},
    {"questionmark", "question"},
    {"questionmark.circle", "question_circle"},
    {"rectangle.split.3x1", ""},
    {"rectangle.topthird.inset.filled", ""},
    {"speaker.fill", "speaker_fill"},
    {"speaker.slash.fill", "speaker_slash_fill"},
    {"speaker.wave.2", "speaker_2"},
    {"speaker.wave.2.fill", "speaker_2_fill"},
    {"speaker.wave.3.fill", "speaker_3_fill"},
    {"square.and.arrow.up", "square_arrow_up"},
    {"square.grid.2x2", "square_grid_2x2"},
    {"sun.max.fill", "sun_max_fill"},
    {"sun.min.fill", "sun_min_fill"},
    {"thermometer", "thermometer"},
    {"thermometer.medium", "thermometer"},
    {"timer", "timer"},
    {"trash", "trash"},
    {"trash.fill", "trash_fill"},
    {"tray.fill", "tray_fill"},
    {"wind", "wind"},
    // clang-format on
};

constexpr bool isKnownSymbol(std::string_view name) {
    for (const auto& row : symbolTable)
        if (row.name == name)
            return true;
    return false;
}

/// Called only for an unknown symbol, and not constant, so that such a name does not compile.
void symbolIsNotInTheTable();

consteval std::string_view operator""_symbol(const char* text, std::size_t length) {
    if (!isKnownSymbol({text, length}))
        symbolIsNotInTheTable();
    return {text, length};
}

} // namespace orvelle
