// SPDX-License-Identifier: MIT
// Writes docs/reference.md from the program's own tables: doc_tables OUT
//
// A test compares what it writes with the document, so that the two never part. After a change of a table:
//
//   build/dev/tools/doc_tables docs/reference.md
#include "draw/inks.h"
#include "draw/placed_text.h"
#include "draw/undo.h"
#include "gui/key_labels.h"
#include "gui/strings.h"
#include "imagefile/formats.h"
#include "loop/actions.h"
#include "platform/files.h"
#include "runtime/animation.h"
#include "runtime/hotkeys.h"
#include "runtime/macros.h"
#include "runtime/view.h"
#include "screens/action_table.h"
#include "screens/options_table.h"
#include "tools/text_tool.h"
#include "tools/tools.h"
#include <cctype>
#include <cstdio>
#include <sstream>

namespace kelu {
namespace {

/// The screens' capitals as sentences. What stands between quotes or exclamation marks stays in capitals.
std::string sentences(const std::string& capitals)
{
    std::string text;
    bool begins = true;
    char quoted = 0;
    for (std::size_t i = 0; i < capitals.size(); ++i) {
        const char c = capitals[i];
        const bool mark = c == '\'' || c == '!';
        const bool opens = quoted == 0 && mark && (i == 0 || capitals[i - 1] == ' ');
        const bool closes = quoted != 0 && c == quoted;
        text += begins || quoted != 0 ? c : static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        if (std::isalpha(static_cast<unsigned char>(c))) begins = false;
        if (!opens && !closes && (c == '.' || c == '!')) begins = true;
        if (opens || closes) quoted = opens ? c : '\0';
    }
    for (std::size_t at = 0; (at = text.find(" rgb ", at)) != std::string::npos; ++at)
        text.replace(at, 5, " RGB ");
    return text;
}

/// Joins a line to a text: a word that was parted by a hyphen is whole again.
void join(std::string& text, const std::string& line)
{
    const bool parted = text.ends_with("-");
    if (parted && !text.ends_with("SEMI-")) text.pop_back();
    if (!text.empty() && !line.empty() && !parted) text += ' ';
    text += line;
}

/// A description of ten lines as one.
std::string description(int row)
{
    std::string text;
    for (int line = 0; line < description_lines; ++line)
        join(text, ui_strings[first_description + description_lines * row + line]);
    return sentences(text);
}

/// What can be set, as "RADIUS 0 to 32".
std::string option_list(std::span<const DrawOption> options)
{
    std::string text;
    for (const DrawOption& option : options) {
        if (!text.empty()) text += ", ";
        text += ui_strings[option.text];
        if (option.widget == OptionWidget::SLIDER)
            text += " " + std::to_string(option.slider_lowest) + " to " + std::to_string(option.highest());
    }
    return text;
}

void write_choice(std::ostream& out, const DrawChoice& choice)
{
    out << "| " << ui_strings[choice.name] << " | " << description(choice.description) << " | "
        << option_list(choice.options) << " |\n";
}

void write_tools(std::ostream& out)
{
    out << "## Tools\n\nA tool decides where the ink goes.\n\n| Tool | What it does | Options |\n|---|---|---|\n";
    for (const ToolRow& tool : tools)
        if (tool.id != TOOL_NONE) write_choice(out, tool);
}

void write_inks(std::ostream& out)
{
    out << "\n## Inks\n\nAn ink decides what happens where a tool goes.\n\n";
    out << "| Ink | What it does | Options |\n|---|---|---|\n";
    for (int ink = 0; ink < INK_COUNT; ++ink)
        write_choice(out, *find_ink(ink));
}

std::string code(const std::string& label) { return label.empty() ? "" : "`" + label + "`"; }

std::string keys_of(const HotkeyRow& row)
{
    std::string text = code(row.primary > 0 ? key_label(row.primary) : "");
    if (row.alternate > 0) text += (text.empty() ? "" : " or ") + code(key_label(row.alternate));
    return text;
}

void write_keys(std::ostream& out)
{
    out << "\n## Keys\n\nThese are the keys as delivered. USER, KEYS changes them all. `(P)` is the keypad, "
           "`<U>`, `<D>`, `<L>` and `<R>` are the arrows, and `TILDE` is the key to the left of `1`.\n"
           "Keys go by their place on the keyboard, in text fields, too: their names are those of a US layout.\n"
           "A key given to PIC MENU - TINT is forgotten at the end; all others are kept.\n"
           "Escape leaves every window that has a CANCEL, EXIT, BACK or RETURN, or nothing but an OKAY, unless an "
           "action "
           "that answers there has it. Only the window that asks for a key takes it as a key.\n\n";
    out << "| Action | Keys | On a spare mouse button |\n|---|---|---|\n";
    set_default_hotkeys();
    for (int action = 0; action < ACTION_LIST_END; ++action) {
        out << "| " << ui_strings[first_action_name + action] << " | " << keys_of(hotkeys.hotkey_table[action]) << " | "
            << (mouse_function_of(action) >= 0 ? "yes" : "") << " |\n";
    }
}

void write_formats(std::ostream& out)
{
    out << "\n## Files\n\nThe letters behind the point tell what a file is; a picture without them is known by its "
           "content.\n\n| Files | Read | Written | Keep the alpha | Preview |\n|---|---|---|---|---|\n";
    const auto yes = [](bool value) { return value ? "yes" : ""; };
    for (int id = 0; id < FORMAT_COUNT; ++id) {
        const FormatRow& row = format_row(id);
        if (!row.decode) continue;
        out << "| " << row.extension << " | yes | " << yes(row.save != nullptr) << " | " << yes(row.keeps_alpha)
            << " | " << yes(row.previews) << " |\n";
    }
    out << "\nBeside pictures there are fonts (TTF and other files of outlines or pixels), whole workspaces (WSP), "
           "favourites and colour schemes.\n";
}

std::string radio_list(const OptionRow& row)
{
    std::string text;
    for (int i = 0; i < row.choices; ++i) {
        const OptionValue& value = row.values[static_cast<std::size_t>(i)];
        const bool chosen = value.value == row.by_default;
        if (!text.empty()) text += ", ";
        text += chosen ? "**" : "";
        text += ui_strings[value.text];
        text += chosen ? "**" : "";
    }
    return text;
}

void write_options(std::ostream& out)
{
    out << "\n## Options\n\nUSER, OPTIONS. What stands in bold here is delivered, and what DEFAULTS chooses.\n\n| "
           "Option | Choices "
           "|\n|---|---|\n";
    const auto rows = options_table();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const OptionRow& row = rows[i];
        if (row.form != OptionForm::CHOICE && row.form != OptionForm::SLIDER) continue;
        out << "| " << ui_strings[first_option_name + static_cast<int>(i)] << " | ";
        if (row.form == OptionForm::CHOICE) {
            out << radio_list(row);
        } else {
            out << row.lowest << " to " << row.lowest + row.steps - 1 << ", **" << row.by_default << "**";
        }
        out << " |\n";
    }
    out << "\nFont and opacity of the status bar and the size limit of the file preview return to these values at each "
           "start; all other options are kept.\n";
}

void write_limits(std::ostream& out)
{
    out << "\n## Limits\n\n| | At most |\n|---|---|\n";
    out << "| Frames of a workspace | " << max_frames << " |\n";
    out << "| A side of a frame | " << max_bitmap_side << " pixels |\n";
    out << "| A frame in all | " << max_bitmap_pixels / 1'000'000 << " million pixels |\n";
    out << "| Zoom | " << (1 << (max_zoom - 1)) << " times |\n";
    out << "| Steps of undo, and of redo | " << max_undo_depth << " |\n";
    out << "| Delay of a frame | " << max_anim_delay << " |\n";
    out << "| Tools and inks at hand | " << toolbox.tool_slots.size() << " and " << toolbox.ink_slots.size() << " |\n";
    out << "| Brush tips | " << custom_tip << ", and one of your own |\n";
    out << "| Favourite colours | " << 10 << " in the menu, " << toolbox.extended_favorites.size()
        << " behind them |\n";
    out << "| Macros | " << macro_count << " |\n";
    out << "| A text | " << text_limits::characters << " characters of " << text_limits::size
        << " pixels, with gaps of " << text_limits::gap << " |\n";
}

std::string reference()
{
    std::ostringstream out;
    out << "# Reference\n\nThe tables of the program, with the texts of its own screens. How it all comes together is "
           "described in [the guide](guide.md).\n\n";
    write_tools(out);
    write_inks(out);
    write_keys(out);
    write_options(out);
    write_formats(out);
    write_limits(out);
    return out.str();
}

} // namespace
} // namespace kelu

int main(int argc, char** argv)
{
    using namespace kelu;
    if (argc != 2) {
        std::fprintf(stderr, "usage: doc_tables OUT\n");
        return 2;
    }
    const std::string text = reference();
    if (platform::replace_file(argv[1], {reinterpret_cast<const uint8_t*>(text.data()), text.size()})) return 0;
    std::fprintf(stderr, "can't write %s\n", argv[1]);
    return 1;
}
