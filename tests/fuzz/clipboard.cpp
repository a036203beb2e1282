// SPDX-License-Identifier: MIT
// Any bytes as what the clipboard's owner answers: lists of targets, content in one property or in pieces, and
// refusals.
#include "reader_target.h"

#include "platform/clipboard_reader.h"

namespace {

using namespace kelu::platform;

constexpr std::size_t most_content = 600;
constexpr const char* wanted[] = {"image/png", "image/bmp"};

class AnyOwner final : public SelectionOwner {
public:
    explicit AnyOwner(std::span<const uint8_t> bytes) : in_(bytes) {}
    Atom atom(const char* name) override
    {
        return static_cast<Atom>(name[0]) + static_cast<Atom>(name[6 % std::strlen(name)]);
    }
    bool ask(Atom, std::chrono::milliseconds) override { return in_.byte() % 8 != 7; }
    bool wait_for_piece() override { return in_.left() > 0; }
    bool take(std::size_t limit, ClipboardLink::Property& property) override
    {
        const int kind = in_.byte();
        property.type = kind % 4 == 0 ? 0 : kind % 4 == 1 ? atom("INCR") : atom("ATOM");
        const auto run = in_.take(std::min(static_cast<std::size_t>(in_.little16() & 0x3ff), in_.left()));
        property.bytes.assign(run.begin(), run.end());
        return run.size() <= limit;
    }

private:
    kelu::ByteReader in_;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    AnyOwner owner({data, size});
    const ClipboardItem item = read_selection(owner, wanted, most_content);
    if (item.bytes.size() > most_content || (item.type.empty() && !item.bytes.empty())) std::abort();
    return 0;
}
