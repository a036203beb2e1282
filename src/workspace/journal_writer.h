// SPDX-License-Identifier: MIT
// The file of one frame's journal, as the thread of running work writes it.
#pragma once

#include "workspace/journal_file.h"
#include <sys/types.h>

namespace kelu {

/// Appends batches of records. A new journal is made whole beside, with its first batch, and renamed; later batches are
/// appended. After a failure what the file holds is unsure: only a new journal with the whole picture goes on. No
/// thread but the owner's.
class JournalWriter {
public:
    JournalWriter() = default;
    ~JournalWriter() { close_file(); }
    JournalWriter(const JournalWriter&) = delete;
    JournalWriter& operator=(const JournalWriter&) = delete;

    /// From now on it is the journal of this frame, whose file and journal have these absolute names. What has been
    /// begun for another frame is left as it is.
    void begin(int frame, std::string frame_name, std::string journal_name);
    /// Takes the journal's file away, if there is one: the frame's own file has all of it.
    void drop();
    /// The next batch holds the whole picture, and begins a new journal.
    void start_anew() { anew_ = true; }

    /// Records of the present batch. They go to the file as they come.
    JournalRecords& records() { return records_; }
    /// Lets what has come so far go to the system, once there is much of it.
    bool spill();
    /// Seals the batch and brings it to the disk. False: it isn't there, and `errno` says why.
    bool finish();
    /// Nothing of the present batch counts.
    void give_up();

    int frame() const { return frame_; }
    const std::string& name() const { return journal_name_; }
    uint64_t size() const { return size_; } ///< bytes of the journal

private:
    /// What distinguishes versions of a file without reading it.
    struct Version {
        ino_t node = 0;
        off_t size = 0;
        int64_t changed = 0; ///< nanoseconds
        friend bool operator==(const Version&, const Version&) = default;
    };
    static Version version_of(const std::string& name);

    bool open_file();
    bool create_beside();
    bool write(std::span<const uint8_t> bytes);
    void close_file();

    int frame_ = 0;
    std::string frame_name_, journal_name_;
    Version base_; ///< of the frame's file that the journal goes on from
    Version last_; ///< of the journal as it was left
    JournalRecords records_;
    uint64_t size_ = 0;
    int handle_ = -1;     ///< of the present batch, -1 none
    bool beside_ = false; ///< the batch goes to a new journal
    bool anew_ = false;   ///< the batch holds the whole picture
    bool has_file_ = false;
};

} // namespace kelu
