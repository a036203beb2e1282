// SPDX-License-Identifier: MIT
// What every control of every place does: each slot under both buttons and the wheel, its bar's arrows and drags, and
// keys. The tables in tests/golden/controls have one row for each, with the words of settings and workspace that
// changed and with sums of the picture presented and of the work; beside each is the picture of the place.
// KELU_ACCEPT=1 writes them anew: read what changed.
#include "draw/point_list.h"
#include "draw/touched.h"
#include "draw/undo.h"
#include "gui/tooltips.h"
#include "platform/files.h"
#include "screens/browser_slots.h"
#include "support/places.h"
#include "workspace/settings.h"
#include "workspace/state.h"
#include <algorithm>
#include <allegro.h>
#include <array>
#include <cctype>
#include <map>
#include <optional>
#include <sstream>
#include <utility>
#include <vector>
#include <zlib.h>

namespace kelu {

using namespace test;

namespace {

constexpr int listed_words = 5;  ///< of a row, by number; more than these go into one sum
constexpr int stored_views = 43; ///< a tag that follows the view when the work is saved, by the clock on the wall
constexpr int keys_tried[] = {KEY_A,  KEY_7,    KEY_BACKSPACE, KEY_TAB, KEY_ENTER, KEY_LEFT, KEY_RIGHT,
                              KEY_UP, KEY_DOWN, KEY_HOME,      KEY_END, KEY_PGUP,  KEY_PGDN, KEY_DEL};

const Place home{"home", {frames(40)}, {}}; // when the picture has faded in

/// So that a pixel tells where it comes from.
void paint_blocks()
{
    for (int y = 24; y < store.frame_bitmap.height(); ++y)
        for (int x = 0; x < store.frame_bitmap.width(); ++x)
            row(store.frame_bitmap, y)[x] = std::max(0, (x / 6 + y / 5 * 7) % 23 - 4) * 0x030609; // some are black
    touch_frame();
}

unsigned sum_of(BITMAP* picture)
{
    if (!picture) return 0;
    uLong sum = 0;
    std::vector<int> colors(static_cast<std::size_t>(picture->w));
    for (int y = 0; y < picture->h; ++y) {
        const int* pixels = row(picture, y);
        int* color = colors.data();
        for (int x = 0; x < picture->w; ++x)
            *color++ = *pixels++ & 0xffffff;
        sum = crc32(sum, reinterpret_cast<const Bytef*>(colors.data()), static_cast<uInt>(colors.size() * sizeof(int)));
    }
    return static_cast<unsigned>(sum);
}

std::map<std::string, unsigned> sums_of_pictures()
{
    return {{"frame", sum_of(store.frame_bitmap)},
            {"alpha", sum_of(store.alpha_bitmap)},
            {"cel", sum_of(store.cel_bitmap)},
            {"cel source", sum_of(store.cel_source_bitmap)},
            {"tips", sum_of(store.tip_sheet)}};
}

/// Every number of the settings and of the workspace's state, with tag, minor and place, always in the same order.
using Words = std::vector<std::pair<std::array<int, 4>, int>>;

Words all_words()
{
    Words words;
    words.reserve(8192);
    for (const auto rows : {settings_tags(), state_tags()})
        for (const TagRow& tag : rows)
            for (int minor = 0; minor < tag.minors; ++minor)
                for (int i = 0; tag.tag != stored_views && i < tag.words(); ++i)
                    words.push_back({{rows.data() == state_tags().data(), tag.tag, minor, i}, tag.get(minor, i)});
    return words;
}

std::string changes(const Words& before, const Words& now)
{
    std::map<std::array<int, 4>, std::pair<int, int>> changed;
    for (std::size_t at = 0; at < now.size(); ++at)
        if (now[at].second != before[at].second) changed[now[at].first] = {before[at].second, now[at].second};
    std::ostringstream out;
    int count = 0;
    unsigned rest = 0;
    for (const auto& [place, words] : changed) {
        const auto& [of_state, tag, minor, i] = place;
        const auto& [old, word] = words;
        if (++count <= listed_words) {
            out << (of_state ? " state " : " settings ") << tag << '.' << minor << '.' << i << ' ' << old << '>'
                << word;
        } else {
            rest = rest * 31 + static_cast<unsigned>(word + i);
        }
    }
    if (count > listed_words) out << " and " << count - listed_words << " more " << std::hex << rest;
    return out.str();
}

/// The browser's drives are those of the machine.
bool leads_outside(int slot)
{
    return menus.menu_id == MENU_BROWSER && slot >= BROWSER_DRIVE_0 && slot < BROWSER_DRIVE_0 + browser_drives;
}

/// The slots that a user can reach.
std::vector<int> shown_slots()
{
    std::vector<int> slots;
    for (int slot = 0; slot < gui_slots; ++slot)
        if (gui.active[slot] != 0 && gui.hidden[slot] == 0 && gui.w[slot] > 0 && !leads_outside(slot))
            slots.push_back(slot);
    return slots;
}

class Controls : public testing::TestWithParam<Place> {
protected:
    std::optional<Session> session;
    std::ostringstream table;
    int menu = 0;
    std::vector<int> slots;
    bool of_browser = false;
    unsigned held = 0; ///< sum of the picture while the button was down

    /// Out of all screens and waits, as far as Escape leads.
    void go_home()
    {
        for (int i = 0; !session->ended() && i < 6 && (i == 0 || menus.menu_id != MENU_DRAW); ++i)
            session->key(KEY_ESC);
        // At home already, Escape has begun to get a cel.
        if (!session->ended() && menus.status_message == TIP_GRAB_FIRST) session->key(KEY_ESC);
    }

    /// The place as it is when it has just been opened, from wherever the last control has led; in a new session when
    /// the way there is another one now.
    void open()
    {
        if (session && !session->ended()) {
            go_home();
            if (!session->ended()) GetParam().open(*session);
            if (is_open()) return;
        }
        session.reset();
        session.emplace();
        still_frame_check = nullptr; // takes half of the time, and other sessions have it
        prepare(*session);
        paint_blocks();
        GetParam().open(*session);
        menu = menus.menu_id;
        slots = shown_slots();
        of_browser = menu == MENU_BROWSER || GetParam().name == std::string("overwrite question");
    }

    bool is_open() const { return !session->ended() && menus.menu_id == menu && shown_slots() == slots; }

    /// Takes a step, and writes what has changed by it.
    void record(const std::string& name, const Step& step)
    {
        const Words before = all_words();
        const auto sums = sums_of_pictures();
        held = 0;
        step.act(*session);
        table << name << ':' << changes(before, all_words()) << std::hex;
        if (held != 0) table << " held " << held;
        for (const auto& [picture, sum] : sums_of_pictures())
            if (sum != sums.at(picture)) table << ' ' << picture << ' ' << sum;
        if (session->ended()) {
            table << " ended\n";
            return;
        }
        if (menus.menu_id != menu) table << " menu " << std::dec << menus.menu_id;
        table << " undo " << std::ranges::count_if(undo.undo_age, [](int age) { return age >= 0; });
        if (shows_own_folder()) table << " screen " << std::hex << sum_of_screen();
        table << std::dec << '\n';
    }

    bool over_browser() const { return menus.menu_id == MENU_BROWSER || of_browser; }

    /// Other folders, and the fonts of the system, are not the same everywhere.
    bool shows_own_folder() const
    {
        if (!over_browser()) return true;
        return platform::working_directory() == session->folder() && gui.text_id[BROWSER_LOCAL] != TEXT_LOCAL;
    }

    /// Without the path, which has another name at every run, and the drives of the machine.
    unsigned sum_of_screen() const
    {
        const Bitmap screen(320, 240);
        blit(session->picture(), screen, 0, 0, 0, 0, 320, 240);
        const Point path{gui.x[BROWSER_PATH], gui.y[BROWSER_PATH]};
        if (over_browser()) rectfill(screen, path.x, path.y - 10, 319, path.y + 8, 0);
        return sum_of(screen);
    }

    template <class Place>
    Step press(Place place, int button = LEFT_BUTTON)
    {
        return [=, this](Session& run) {
            const Point at = place();
            run.move(at.x, at.y);
            run.press(button);
            if (!run.ended() && shows_own_folder()) held = sum_of_screen();
            run.release(button);
        };
    }

    void act(const std::string& name, const Step& step)
    {
        if (!session || !is_open()) open();
        record(name, step);
        if (!session->ended() && menu != MENU_DRAW && menus.menu_id != menu && menus.menu_id != MENU_DRAW)
            record("  back", tap(KEY_ESC));
    }
};

Point middle(int slot) { return {gui.x[slot] + gui.w[slot] / 2, gui.y[slot] + gui.h[slot] / 2}; }

Point arrow(int slot, std::size_t which)
{
    const auto& box = gui.arrow_box[slot];
    return {box[2 * which] + gui.arrow_w[slot] / 2, box[2 * which + 1] + gui.arrow_h[slot] / 2};
}

std::string file_name(std::string name)
{
    std::erase(name, ',');
    std::ranges::replace(name, ' ', '_');
    return "controls/" + name;
}

TEST_P(Controls, DoWhatTheirTableSays)
{
    open();
    EXPECT_TRUE(of_browser || matches_golden(session->picture(), file_name(GetParam().name)));
    const bool is_tool =
        menu == MENU_DRAW && GetParam().name != std::string(home.name); // the strip's slots are those of home
    const std::vector<int> all = is_tool ? std::vector<int>{} : slots;
    for (const int slot : all) {
        const std::string name = std::to_string(slot);
        const auto here = [slot] { return middle(slot); };
        const bool has_bar = gui.scroll_on[slot] != 0;
        act(name + " left, tip " + std::to_string(gui.tooltip[slot]), press(here));
        act(name + " right", press(here, RIGHT_BUTTON));
        for (std::size_t which = 0; has_bar && which < 2; ++which)
            act(name + " arrow", press([=] { return arrow(slot, which); }));
        if (has_bar)
            act(name + " drag", [=](Session& run) { run.drag(here().x, here().y, here().x + 19, here().y + 11); });
        act(name + " wheel", [here](Session& run) {
            run.move(here().x, here().y);
            run.wheel(-1);
        });
    }
    for (const int key : keys_tried)
        act("key " + std::to_string(key), tap(key));
    for (const int y : {70, 130, 200}) {
        open(); // a key may have ended what waits for a click
        act("frame " + std::to_string(y), [y](Session& run) {
            run.click_at(90 + y, y);
            run.move(110 + y, 150);
        });
    }
    open();
    act("frame right", at(150, 100, RIGHT_BUTTON));
    EXPECT_TRUE(text_matches_golden(table.str(), file_name(GetParam().name)));
}

std::string name_of(const testing::TestParamInfo<Place>& place)
{
    std::string name = place.param.name;
    std::erase_if(name, [](char sign) { return !std::isalnum(static_cast<unsigned char>(sign)); });
    return name;
}

INSTANTIATE_TEST_SUITE_P(Of, Controls, testing::ValuesIn(places), name_of);
INSTANTIATE_TEST_SUITE_P(OfHome, Controls, testing::Values(home), name_of);

} // namespace
} // namespace kelu
