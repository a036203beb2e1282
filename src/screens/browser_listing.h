// SPDX-License-Identifier: MIT
// The folder that the file browser shows: its rows, the way into other folders, and the files that names stand for.
//
// A row shows a name in upper case and keeps the true one beside it, so that a click always means the file that was
// clicked, also where others differ from it only in case. Main thread.
#pragma once

#include <string>
#include <string_view>

namespace kelu {

/// The pattern that every file matches.
inline constexpr std::string_view every_file = "*.*";

/// Lists the working directory into `browser_listing`: the way up, folders, then the files of a pattern ("*.GIF" takes
/// the endings of its format in any case), each part in alphabetical order. Rows beyond 1024 are cut off. Writes
/// `browser_dir`, forgets `browser_file`, and gives the list its bar and the field the path; a slot of -1 is left out.
void scan_directory(std::string_view pattern, int list_slot, int path_slot);

/// Gives a list a bar of one step for each row beyond those that show, or none when all do.
void fit_list_bar(int slot);

/// The row of a list under the pointer, -1: none, or the press, at `press_x`, was on the list's bar.
int pointed_row(int slot, int press_x);

/// Enters a folder; a letter and ":" at its start stand for a drive. False, with a word in the status bar and a line
/// in the log, when it can't be entered; the working directory is then as before.
bool enter_folder(const std::string& path);

/// The true path that a typed one stands for, without a separator at its end: drives by their folders, and each part as
/// it is written on the disk. What doesn't exist stays as it was typed.
std::string path_named(const std::string& typed);

/// What messages show of a file's name or path: its last part in upper case, "?" for letters that the font doesn't
/// have, and of a long one its end.
std::string shown_name(const std::string& path);

/// Puts a text into a field, with the caret behind it and in view.
void show_in_field(int slot, const std::string& text);

/// The file that was clicked last. It holds for as long as its field shows its row's text in its folder.
struct PickedFile {
    std::string shown, name, folder; ///< row's text, true name, folder of the file
};

/// The file that a name in the field stands for: the picked one, else one that exists exactly so, else one that differs
/// in case, else a new one.
std::string file_named(const std::string& text, const PickedFile& picked);

/// The name under which a text of the field is saved: without the ending of a known format it gets the one of the
/// pattern, unless that takes every file or fonts. A text that ends as a folder's does stays.
std::string with_ending(const std::string& text, std::string_view pattern);

} // namespace kelu
