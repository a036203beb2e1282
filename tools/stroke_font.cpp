// SPDX-License-Identifier: MIT
// From strokes to outlines: what a round pen covers on its way.
#include "stroke_font.h"

#include "text_lines.h"
#include <algorithm>
#include <cmath>
#include <numbers>
#include <sstream>

namespace kelu::tools {
namespace {

constexpr double units_per_step = 100;   ///< of the font, for a step of the letters' grid
constexpr double degrees_per_side = 7.5; ///< of an arc's polygon
constexpr double dot_growth = 1.25;      ///< a dot looks as heavy as a stroke when it is wider
constexpr double farthest = 300;         ///< steps of the grid

struct Spot {
    double x = 0, y = 0;
};
using Path = std::vector<Spot>;

double radians(double degrees) { return degrees * std::numbers::pi / 180; }

Spot on_ellipse(Spot center, double rx, double ry, double degrees)
{
    return {center.x + rx * std::cos(radians(degrees)), center.y + ry * std::sin(radians(degrees))};
}

Path arc(Spot center, double rx, double ry, double from, double to)
{
    const int sides = std::max(1, static_cast<int>(std::ceil(std::abs(to - from) / degrees_per_side)));
    Path path;
    for (int i = 0; i <= sides; ++i)
        path.push_back(on_ellipse(center, rx, ry, from + (to - from) * i / sides));
    return path;
}

/// Direction across the path at a spot, to its left, of length 1.
Spot across(const Path& path, std::size_t i)
{
    const Spot& before = path[i > 0 ? i - 1 : 0];
    const Spot& after = path[std::min(i + 1, path.size() - 1)];
    const double length = std::hypot(after.x - before.x, after.y - before.y);
    return {(before.y - after.y) / length, (after.x - before.x) / length};
}

void add_cap(Path& outline, Spot center, double radius, Spot from)
{
    const double start = std::atan2(from.y, from.x) * 180 / std::numbers::pi;
    const Path cap = arc(center, radius, radius, start, start - 180);
    outline.insert(outline.end(), cap.begin(), cap.end());
}

/// What the pen covers on an open path: along its left side, round the end, back along the right side, round the
/// start.
Path covered(const Path& path, double radius)
{
    Path outline;
    const auto side = [&](std::size_t i, double distance) {
        const Spot to = across(path, i);
        outline.push_back({path[i].x + to.x * distance, path[i].y + to.y * distance});
    };
    const std::size_t last = path.size() - 1;
    for (std::size_t i = 0; i < last; ++i)
        side(i, radius);
    const Spot at_end = across(path, last);
    add_cap(outline, path[last], radius, at_end);
    for (std::size_t i = last; i-- > 1;)
        side(i, -radius);
    const Spot at_start = across(path, 0);
    add_cap(outline, path[0], radius, {-at_start.x, -at_start.y});
    return outline;
}

/// Twice the area, above 0 against the clock.
double turn_of(const Path& path)
{
    double sum = 0;
    for (std::size_t i = 0; i < path.size(); ++i) {
        const Spot& a = path[i];
        const Spot& b = path[(i + 1) % path.size()];
        sum += a.x * b.y - b.x * a.y;
    }
    return sum;
}

/// A letter in the making.
class Letter {
public:
    Letter(double pen, double shift) : radius_(pen / 2), shift_(shift) {}
    void line(const std::vector<double>& n)
    {
        for (std::size_t i = 0; i + 3 < n.size(); i += 2)
            add(covered({{n[i], n[i + 1]}, {n[i + 2], n[i + 3]}}, radius_));
    }
    void curve(const std::vector<double>& n)
    {
        const Spot center{n[0], n[1]};
        if (std::abs(n[5] - n[4]) < 360) {
            add(covered(arc(center, n[2], n[3], n[4], n[5]), radius_));
            return;
        }
        add(arc(center, n[2] + radius_, n[3] + radius_, 0, 360));
        add(arc(center, n[2] - radius_, n[3] - radius_, 0, 360), true);
    }
    void dot(const std::vector<double>& n)
    {
        add(arc({n[0], n[1]}, radius_ * dot_growth, radius_ * dot_growth, 0, 360));
    }
    const std::vector<Contour>& contours() const { return contours_; }

private:
    /// Ink goes with the clock, holes against it.
    void add(Path path, bool hole = false)
    {
        if ((turn_of(path) > 0) != hole) std::ranges::reverse(path);
        Contour contour;
        for (const Spot& spot : path)
            contour.push_back({static_cast<int>(std::lround((spot.x + shift_) * units_per_step)),
                               static_cast<int>(std::lround(spot.y * units_per_step))});
        contours_.push_back(std::move(contour));
    }

    double radius_, shift_;
    std::vector<Contour> contours_;
};

/// A kind of stroke and how many numbers it has: an even number from `least` on, or just that.
struct StrokeRow {
    const char* word;
    std::size_t least;
    bool more;
    void (Letter::*draw)(const std::vector<double>& numbers);
};
constexpr StrokeRow strokes[] = {
    {"line", 4, true, &Letter::line},
    {"arc", 6, false, &Letter::curve},
    {"dot", 2, false, &Letter::dot},
};

std::vector<double> numbers_in(const Lines& lines, std::istringstream& text)
{
    std::vector<double> numbers;
    for (std::string word; text >> word;) {
        char* end = nullptr;
        numbers.push_back(std::strtod(word.c_str(), &end));
        if (*end != 0 || !(std::abs(numbers.back()) <= 2 * 360)) lines.fail("'" + word + "' is no measure");
    }
    return numbers;
}

/// The line "WORD numbers ...", with as many as asked.
std::vector<double> need_numbers(Lines& lines, const std::string& word, std::size_t count)
{
    std::istringstream text(lines.need());
    std::string first;
    text >> first;
    std::vector<double> numbers = numbers_in(lines, text);
    if (first != word || numbers.size() != count)
        lines.fail("expected '" + word + "' and " + std::to_string(count) + " numbers");
    return numbers;
}

void read_stroke(const Lines& lines, const std::string& word, const std::vector<double>& numbers, Letter& letter)
{
    const auto* row = std::ranges::find(strokes, word, &StrokeRow::word);
    const bool fits = row != std::end(strokes) && numbers.size() % 2 == 0 &&
                      (row->more ? numbers.size() >= row->least : numbers.size() == row->least);
    if (!fits) lines.fail("no such stroke");
    if (std::ranges::any_of(numbers.begin(), numbers.begin() + 2, [](double n) { return std::abs(n) > farthest; }))
        lines.fail("too far away");
    (letter.*row->draw)(numbers);
}

int to_units(double steps) { return static_cast<int>(std::lround(steps * units_per_step)); }

} // namespace

OutlineFont read_stroke_font(const std::string& file, const std::string& family)
{
    Lines lines(file);
    const double pen = need_numbers(lines, "pen", 1)[0];
    const std::vector<double> reach = need_numbers(lines, "line", 2);
    const double gap = need_numbers(lines, "gap", 1)[0];
    OutlineFont font{family, to_units(reach[0] + reach[1]), to_units(reach[0]), to_units(-reach[1]), {}};
    Letter letter(pen, (pen + gap) / 2);
    while (const auto text = lines.next()) {
        std::istringstream words(*text);
        std::string word;
        std::string name;
        words >> word;
        if (word != "glyph") {
            if (font.glyphs.empty()) lines.fail("expected a glyph");
            read_stroke(lines, word, numbers_in(lines, words), letter);
            font.glyphs.back().contours = letter.contours();
            continue;
        }
        double width = -1;
        if (!(words >> name >> width) || width < 0 || width > farthest) lines.fail("expected 'glyph NAME WIDTH'");
        const int code = glyph_code(lines, name, 0);
        if (!font.glyphs.empty() && code <= font.glyphs.back().code) lines.fail("the glyphs stand in order");
        letter = Letter(pen, (pen + gap) / 2);
        font.glyphs.push_back({code, to_units(width + pen + gap), {}});
    }
    if (font.glyphs.size() < 2 || font.glyphs[0].code != 0) lines.fail("glyph #0 comes first, and others follow");
    return font;
}

} // namespace kelu::tools
