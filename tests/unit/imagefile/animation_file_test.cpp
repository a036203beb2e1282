// SPDX-License-Identifier: MIT
// Animated GIF and PNG both ways: what comes back, what other programs see, how long it takes, and hostile files.
#include "imagefile/apng.h"
#include "imagefile/gif_animation.h"
#include "imagefile/reduce.h"
#include "imagefile/refusal.h"
#include "runtime/pixels.h"
#include "support/pictures.h"
#include "support/temporary_folder.h"
#include <cstdlib>
#include <gtest/gtest.h>
#include <map>
#include <numeric>
#include <optional>

namespace kelu {

using namespace test;

namespace {

constexpr int opaque = static_cast<int>(0xff000000U);

/// Pictures of one size with their times.
struct Film {
    std::vector<Bitmap> pictures;
    std::vector<int> durations;

    void add(Bitmap picture, int duration = 60)
    {
        pictures.push_back(std::move(picture));
        durations.push_back(duration);
    }
};

using Write = WriteResult (*)(const AnimationSource&, ByteSink, WorkDone);
using Read = bool (*)(std::span<const uint8_t>, TakePicture);

template <int reduction>
WriteResult write_gif(const AnimationSource& source, ByteSink sink, WorkDone done)
{
    return write_gif_animation(source, reduction, sink, done);
}

constexpr auto go_on = [](int, int) { return true; };

Bytes written(const Film& film, Write write)
{
    Bytes file;
    const auto picture = [&film](int i) { return film.pictures[static_cast<std::size_t>(i)].copy(); };
    const auto append = [&file](std::span<const uint8_t> run) {
        file.insert(file.end(), run.begin(), run.end());
        return true;
    };
    const AnimationSource source{film.pictures[0].width(), film.pictures[0].height(), film.durations, picture};
    EXPECT_EQ(write(source, append, go_on), WriteResult::WRITTEN);
    return file;
}

std::optional<Film> read_back(std::span<const uint8_t> file, Read read)
{
    Film film;
    const auto add = [&film](const Bitmap& picture, int duration) {
        film.add(picture.copy(), duration);
        return true;
    };
    if (!read(file, add)) return {};
    return film;
}

/// A picture as a GIF can hold it.
Bitmap without_shades(const Bitmap& picture)
{
    return paint(picture.width(), picture.height(), [&picture](int x, int y) {
        const int pixel = row(picture, y)[x];
        return static_cast<unsigned>(pixel) >> 24 < 128 ? 0 : pixel | opaque;
    });
}

/// A disc that walks over a ground, with a rim of half alpha.
Bitmap disc(int at, int ground)
{
    return paint(40, 30, [=](int x, int y) {
        const int dx = x - at, dy = y - 14, far = dx * dx + dy * dy;
        if (far > 64) return ground;
        if (far > 49) return pack_rgb(255, 255, 255) | 100 << 24;
        return opaque | pack_rgb(200, 3 + (x + y) % 3, 77);
    });
}

/// Films whose colours a GIF keeps, by name.
std::map<std::string, Film> exact_films()
{
    std::map<std::string, Film> films;
    for (int i = 0; i < 6; ++i) {
        films["on nothing"].add(disc(5 + 6 * i, 0));
        films["on a ground"].add(disc(5 + 6 * i, opaque | 0x203040));
        films["all 256 colors"].add(
            paint(16, 16, [i](int x, int y) { return opaque | pack_rgb(x * 16, y * 16, (i + x) % 2); }));
        films["255 and nothing"].add(
            paint(16, 16, [i](int x, int y) { return x == i && y == 0 ? 0 : opaque | (16 * y + x) * 0x010301; }));
        films["255 each and nothing"].add(paint(
            17, 16, [i](int x, int y) { return x == 16 || (x == 0 && y == 0) ? 0 : opaque | (16 * y + x) << 8 | i; }));
        films["shades"].add(paint(21, 13, [i](int x, int y) { return (x * 12 + i) << 24 | pack_rgb(y, x / 2, 9); }),
                            60 * (i + 1));
        films["many in all"].add(paint(16, 8, [i](int x, int y) { return opaque | pack_rgb(x, y, i * 40); }));
    }
    Film& blinks = films["comes and goes"];
    for (const int ground : {0, opaque | 5, 0, 0, opaque | 5, opaque | 5})
        blinks.add(paint(7, 5, [ground](int, int) { return ground; }));
    films["one"].add(disc(20, 0));
    return films;
}

struct Kind {
    const char* file;
    Write write;
    Read read;
    const char *apart, *part; ///< what another program makes pictures of a file with, and the names that it gives them
    int first_part;
    Bitmap (*kept)(const Bitmap&); ///< what the format keeps of a picture
};

const Kind kinds[] = {
    {"a.gif", write_gif<REDUCE_BEST>, read_gif_animation, "convert a.gif -coalesce -alpha on png32:shown-%d.png",
     "shown-%d.png", 0, without_shades},
    {"a.png", write_apng, read_apng, "rm -f apngframe*; apngdis a.png", "apngframe%d.png", 1,
     [](const Bitmap& picture) { return picture.copy(); }},
};

/// A picture of a file as another program shows it; nothing when there is no such program.
std::optional<Bitmap> part_of(const Kind& kind, int i)
{
    char name[32];
    std::snprintf(name, sizeof name, kind.part, kind.first_part + i);
    return decoded_by_convert(name);
}

} // namespace

TEST(animation_file, shows_what_was_written_to_us_and_to_others)
{
    const TemporaryFolder folder;
    for (const Kind& kind : kinds) {
        for (const auto& [name, film] : exact_films()) {
            SCOPED_TRACE(kind.file + (", " + name));
            const Bytes file = written(film, kind.write);
            const auto back = read_back(file, kind.read);
            ASSERT_TRUE(back && back->pictures.size() == film.pictures.size());
            EXPECT_EQ(back->durations, film.durations);
            folder.put(kind.file, file);
            const bool apart = std::system((std::string(kind.apart) + " >/dev/null 2>&1").c_str()) == 0;
            for (std::size_t i = 0; i < film.pictures.size(); ++i) {
                const Bitmap kept = kind.kept(film.pictures[i]);
                EXPECT_EQ(difference(back->pictures[i], kept), "") << i;
                const auto seen = apart ? part_of(kind, static_cast<int>(i)) : std::nullopt;
                EXPECT_TRUE(!seen || difference(plain_nothing(*seen), plain_nothing(kept)).empty()) << i;
            }
        }
    }
}

TEST(gif_animation, keeps_to_the_colours_of_many_as_the_option_asks)
{
    Film film;
    for (int i = 0; i < 3; ++i)
        film.add(
            paint(64, 48, [i](int x, int y) { return opaque | pack_rgb(x * 4, y * 5 + i, (x * y + 31 * i) & 255); }));
    // Spread evenly over the cube, 256 colours would stand 40 apart.
    const std::pair<Write, double> rows[] = {
        {write_gif<REDUCE_FAST>, 11}, {write_gif<REDUCE_GOOD>, 10}, {write_gif<REDUCE_BEST>, 9}};
    for (const auto& [write, most] : rows) {
        const auto back = read_back(written(film, write), read_gif_animation);
        ASSERT_TRUE(back && back->pictures.size() == 3);
        for (std::size_t i = 0; i < 3; ++i)
            EXPECT_LT(loss(back->pictures[i], film.pictures[i]), most) << i;
    }
}

TEST(gif_animation, keeps_time_over_the_whole_of_a_loop)
{
    const auto hundredths = [](const std::vector<int>& durations) {
        Film film;
        for (const int duration : durations)
            film.add(disc(static_cast<int>(film.pictures.size()), 0), duration);
        std::vector<int> told = read_back(written(film, write_gif<REDUCE_FAST>), read_gif_animation)->durations;
        for (int& units : told)
            units /= units_per_hundredth;
        return told;
    };
    // 7 ticks of the playback are 5.83 hundredths, 12 pictures of them 70.
    const std::vector<int> even = hundredths(std::vector<int>(12, 7 * units_per_tick));
    EXPECT_EQ(std::accumulate(even.begin(), even.end(), 0), 70);
    EXPECT_EQ(*std::ranges::min_element(even), 5);
    EXPECT_EQ(*std::ranges::max_element(even), 6);
    EXPECT_EQ(hundredths({5, 5, 60, 5}), (std::vector<int>{2, 2, 8, 2}))
        << "a longer picture gives back what short ones took";
    EXPECT_EQ(hundredths({5, 5, 5}), (std::vector<int>{2, 2, 2})) << "viewers take less for no time";
}

TEST(apng, lays_pictures_over_each_other_as_the_file_says)
{
    // Four pictures behind one that isn't shown: on nothing, laid over and taken back, laid over and cleared, put.
    const auto film = read_back(data_file("apng/palette.png"), read_apng);
    ASSERT_TRUE(film && film->pictures.size() == 4);
    EXPECT_EQ(film->durations, (std::vector<int>{35, 6, 180, 0}));
    const auto pixel = [&film](std::size_t i, int x, int y) {
        return static_cast<unsigned>(row(film->pictures[i], y)[x]);
    };
    EXPECT_EQ(pixel(0, 1, 0), 0xfffa8142U) << "palettes keep eight bits";
    EXPECT_EQ(pixel(0, 2, 0), 0x8005c84dU) << "with their alpha";
    EXPECT_EQ(pixel(1, 2, 1), 0xff137aa6U) << "half of it shows";
    EXPECT_EQ(pixel(2, 2, 1), 0xff212cffU) << "taken back";
    EXPECT_EQ(pixel(2, 5, 5), 0xfffa8142U);
    EXPECT_EQ(pixel(3, 5, 5), 0U) << "cleared";
    EXPECT_EQ(pixel(3, 0, 0), 0x00010203U) << "put, not laid over";
}

TEST(animation_file, ends_where_it_is_called_off_or_can_not_go_on)
{
    Film film = std::move(exact_films()["on nothing"]);
    const auto all = [&film](int i) { return film.pictures[static_cast<std::size_t>(i)].copy(); };
    const auto half = [&film](int i) { return i < 3 ? film.pictures[static_cast<std::size_t>(i)].copy() : Bitmap(); };
    const auto takes = [](std::span<const uint8_t>) { return true; };
    const auto full = [](std::span<const uint8_t>) { return false; };
    const auto soon = [](int done, int) { return done < 2; };
    for (const Write write : {Write(write_gif<REDUCE_FAST>), Write(write_apng)}) {
        const AnimationSource source{40, 30, film.durations, all};
        EXPECT_EQ(write(source, takes, soon), WriteResult::CALLED_OFF);
        EXPECT_EQ(write(source, full, go_on), WriteResult::NOT_TAKEN);
        EXPECT_EQ(write({40, 30, film.durations, half}, takes, go_on), WriteResult::NO_PICTURE);
    }
}

TEST(animation_file, refuses_every_cut_and_bounds_what_a_file_asks_for)
{
    Film film = std::move(exact_films()["on nothing"]);
    const std::pair<Bytes, Read> files[] = {{written(film, write_gif<REDUCE_FAST>), read_gif_animation},
                                            {written(film, write_apng), read_apng}};
    for (const auto& [file, read] : files) {
        for (std::size_t size = 0; size + 40 < file.size(); size += 7) {
            picture_refusal.clear();
            const auto back = read_back(std::span(file).first(size), read);
            // Between two images a GIF may end; anywhere else it is damaged.
            EXPECT_TRUE(back ? back->pictures.size() < film.pictures.size() : !picture_refusal.empty()) << size;
        }
    }
    // A canvas of a quarter gigabyte, with a picture of one pixel ten times over.
    Bytes large = {'G', 'I', 'F', '8', '9', 'a', 0, 32, 0, 32, 0x80, 0, 0, 0, 0, 0, 9, 9, 9};
    for (int i = 0; i < 10; ++i)
        large.insert(large.end(), {0x2c, 0, 0, 0, 0, 1, 0, 1, 0, 0, 2, 2, 0x44, 1, 0});
    EXPECT_EQ(gif_animation_head(large).pictures, 0);
    EXPECT_EQ(picture_refusal, refusal::too_large);
}

} // namespace kelu
