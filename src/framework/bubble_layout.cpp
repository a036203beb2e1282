// SPDX-License-Identifier: MIT
// The two layouts of a bubble's text. They run where the bubble is spoken, at times on the timer thread: all work is
// done in arrays on the stack.
#include "framework/bubble_layout.h"

#include "base/log.h"
#include <algorithm>
#include <span>

namespace kelu {
namespace {

constexpr int default_colour = 6; // colour set of a text without codes
constexpr int last_colour_set = 98;
constexpr int max_characters = bubble_text_size - 1; // the end mark takes one place
constexpr int max_lines = bubble_break_count - 1;
constexpr int max_words = (max_characters + 1) / 2;
constexpr int narrowest = 10, widest = 25; // columns
constexpr int fewest_lines = 3;
constexpr char hand_mark = '`';
constexpr char forced_end = '^';

/// A word's characters in the bubble's text.
struct Word {
    int first = 0, last = 0;
    bool ends_line = false; // a line end is forced behind it
};
struct Words {
    std::array<Word, max_words> list{};
    int count = 0;
    std::span<const Word> all() const { return std::span(list).first(count); }
};

bool is_digit(char c) { return c >= '0' && c <= '9'; }
int digit_value(char c) { return is_digit(c) ? c - '0' : 0; }

/// Collects characters, and words as they end.
class TextReader {
public:
    TextReader(Bubble& bubble, bool by_hand) : bubble_(bubble), by_hand_(by_hand) {}

    /// Reads the whole text; the words are complete after it.
    void read(std::string_view text)
    {
        for (std::size_t i = 0; i < text.size();)
            i += read_code(text.substr(i));
        end_word();
        bubble_.bubble_text[length_] = bubble_text_end;
    }
    Words words;

private:
    /// Takes a code or a character from the head of `rest`; returns the bytes taken.
    std::size_t read_code(std::string_view rest)
    {
        if (rest.size() >= 4 && rest[0] == '|' && rest[1] == 'c') {
            const int set = digit_value(rest[2]) * 10 + digit_value(rest[3]);
            colour_ = set <= last_colour_set ? set : default_colour;
            return 4;
        }
        if (by_hand_ && rest.size() >= 4 && rest[0] == '|' && rest[1] == 'h' && is_digit(rest[2]) &&
            is_digit(rest[3])) {
            bubble_.bubble_marks[digit_value(rest[2])] = static_cast<uint8_t>(digit_value(rest[3]));
            return 4;
        }
        if (!by_hand_ && rest[0] == forced_end) {
            force_line_end();
        } else if (static_cast<uint8_t>(rest[0]) != bubble_text_end) {
            put(rest[0]);
        }
        return 1;
    }

    void put(char c)
    {
        if (length_ >= max_characters) return;
        bubble_.bubble_text[length_] = static_cast<uint8_t>(c);
        bubble_.bubble_colours[length_] = static_cast<uint8_t>(colour_);
        if (c == ' ') {
            end_word();
        } else if (word_start_ < 0) {
            word_start_ = length_;
        }
        ++length_;
    }

    void end_word()
    {
        if (word_start_ < 0 || words.count >= max_words) return;
        words.list[words.count++] = {word_start_, length_ - 1, false};
        word_start_ = -1;
    }

    /// A forced end is in the text as a blank.
    void force_line_end()
    {
        put(' ');
        if (words.count == 0) return;
        const int word = words.count - 1;
        words.list[word].ends_line = true;
        log_line("[BREAK] at %d", word);
    }

    Bubble& bubble_;
    bool by_hand_;
    int colour_ = default_colour;
    int length_ = 0;
    int word_start_ = -1;
};

/// Where the lines of one attempt end.
struct Lines {
    std::array<int16_t, max_lines> last_words{};
    int count = 0;
    int longest = 0; // characters
};

void end_line(Lines& lines, std::size_t word, int length)
{
    lines.longest = std::max(lines.longest, length);
    if (lines.count < max_lines) lines.last_words[lines.count++] = static_cast<int16_t>(word);
}

/// Fills lines of `width` characters one after the other. A word at the head of a line that doesn't fit makes the
/// lines from there on three characters wider than itself.
Lines wrap(std::span<const Word> words, int width)
{
    Lines lines;
    int line_start = -1;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const Word& word = words[i];
        if (line_start < 0) line_start = word.first;
        const int word_length = word.last - word.first + 1;
        if (line_start == word.first && word_length > width) width = word_length + 3;
        const int length = word.last - line_start + 1;
        const bool next_fits = i + 1 < words.size() && words[i + 1].last - line_start + 1 <= width;
        if (word.ends_line || !next_fits) {
            end_line(lines, i, length);
            line_start = -1;
        }
    }
    return lines;
}

/// The narrowest attempt of those with the fewest lines, where up to three lines count as few.
Lines wrap_best(std::span<const Word> words)
{
    constexpr std::size_t widths = widest - narrowest + 1;
    std::array<Lines, widths> attempts;
    int fewest = INT16_MAX;
    for (std::size_t i = 0; i < widths; ++i) {
        attempts[i] = wrap(words, narrowest + static_cast<int>(i));
        fewest = std::min(fewest, attempts[i].count);
    }
    const int allowed = std::max(fewest, fewest_lines);
    return *std::find_if(attempts.begin(), attempts.end(), [&](const Lines& l) { return l.count <= allowed; });
}

/// Every word is a line.
Lines stack(std::span<const Word> words)
{
    Lines lines;
    for (std::size_t i = 0; i < words.size(); ++i)
        end_line(lines, i, words[i].last - words[i].first + 1);
    return lines;
}

} // namespace

void lay_out_bubble(Bubble& bubble, std::string_view text)
{
    const bool by_hand = !text.empty() && text.front() == hand_mark;
    TextReader reader(bubble, by_hand);
    reader.read(by_hand ? text.substr(1) : text);
    const Lines lines = by_hand ? stack(reader.words.all()) : wrap_best(reader.words.all());
    for (std::size_t i = 0; i < static_cast<std::size_t>(lines.count); ++i)
        bubble.bubble_breaks[i] = lines.last_words[i];
    bubble.bubble_breaks[lines.count] = -1;
    bubble.bubble_height = 6 * std::max(lines.count, 1) + 7;
    bubble.bubble_width = bubble_character_w * lines.longest + 6;
}

int place_bubble_text(const Bubble& bubble, std::array<BubblePlace, bubble_text_size>& places)
{
    int word = -1;
    BubblePlace pen;
    bool in_word = false;
    bool at_line_end = false; // behind a line's last word, where blanks don't count
    std::size_t i = 0;
    for (; i < places.size() && bubble.bubble_text[i] != bubble_text_end; ++i) {
        const bool blank = bubble.bubble_text[i] == ' ';
        if (!blank && !in_word) {
            ++word;
            if (at_line_end) pen = {0, pen.line + 1};
            if (word == 0) pen.column = 0;
            at_line_end = false;
        }
        if (blank && in_word) at_line_end = bubble.bubble_breaks[pen.line] == word;
        in_word = !blank;
        places[i] = pen;
        ++pen.column;
    }
    return static_cast<int>(i);
}

} // namespace kelu
