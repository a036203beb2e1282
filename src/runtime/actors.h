// SPDX-License-Identifier: MIT
// The table of 50 actors: things with a place, a picture and up to four behaviours that run on a timer.
//
// The editor owns one live actor, the screen tint that fades the picture in at the start. Rows 0 and 49 are
// protected: nothing grabs them, and destroying them is refused. A row is free while its `Type` is 0; a spawn writes
// `Type` and the ids of `BEHAVIOR` last. The timer thread moves rows, the main thread spawns, destroys and follows.
#pragma once

#include "base/words.h"
#include "runtime/actor_effects.h"
#include <array>
#include <cstdint>

namespace kelu {

constexpr int max_actors = 50;
constexpr int max_behaviors = 4;             ///< behaviour slots of an actor
constexpr int behavior_param_count = 10;     ///< parameters of a behaviour slot
constexpr int anim_table_size = 32;          ///< entries of an animation
constexpr int stand_table_size = 16;         ///< entries of a standing animation
constexpr int move_queue_size = 256;         ///< steps that an actor can be sent
constexpr int fixed_units_per_pixel = 10000; ///< scale of `actor_fixed_pos` and `actor_velocity`

enum ActorType : int {
    ACTOR_FREE = 0,
    ACTOR_DUST = 9,
    ACTOR_ELEMENT = 12,
    ACTOR_SPEAKER = 51,  ///< its bubbles can be closed by a job
    ACTOR_RESERVED = 99, ///< row 0, taken for good
    ACTOR_TINT = 666
};

enum ActorProfession : int { PROFESSION_ANY = -1, PROFESSION_ELEMENT = 206, PROFESSION_TINT = 666 };

/// Drawing styles, the values of `Mode`.
enum ActorMode : int { MODE_HIDDEN = 0, MODE_SHOWN = 1, MODE_TRANSLUCENT = 4, MODE_WHITE = 6 };

/// What a renderer reads of an actor: the fields that are copied to the shadow at each frame.
struct ActorLook {
    Shared16 Profession = PROFESSION_ANY; ///< identity that a finder looks for
    Shared16 Name = 0;                    ///< number of the name
    Shared16 Team = -1;                   ///< side, -1 none
    Shared<uint8_t> Psuedo = 0;           ///< 1: made by a spawn
    Shared<uint8_t> Mask = 0;             ///< cleared by a spawn
    Shared16 Mode = MODE_HIDDEN;          ///< drawing style
    Shared16 Frame_x = 0, Frame_y = 0;    ///< the two arguments of a blank element
    Shared16 Abs_x = 0, Abs_y = 0;        ///< place on the screen, logical pixels
    Shared16 Abs_Frame_0 = 0, Abs_Frame_1 = 0;
    Shared16 Facing = 0;   ///< direction that the picture looks to
    Shared16 Color = 0;    ///< palette index
    Shared16 Angle = 0;    ///< turn of a polygon actor
    Shared16 Diameter = 0; ///< diameter of a polygon actor, pixels
    Shared16 In_Water = 0; ///< 1: the lower part is hidden
    Shared16 Frame_a = 0, Frame_b = 0;
    Shared16 Sprite_angle = -1; ///< turn of the picture, -1 none
    Shared16 Rotation_Mode = 0; ///< how the turn is drawn
    Shared16 Health = 100, Rank = 1, Stamina = 0, Disposition = 0, Alignment = 0;
    std::array<Shared16, 3> actor_pos{};          ///< x, y, z in pixels; y grows downwards, z upwards
    std::array<Shared16, 3> actor_home{};         ///< place of origin
    Shared16 actor_opacity = 0;                   ///< 0 to 254, read in mode 4
    Shared16 actor_angle = -1;                    ///< first turn, 0 to 255, -1 none
    Shared16 actor_angle2 = 0;                    ///< second turn, 0 to 255
    Shared16 actor_cel = 0, actor_cel_option = 0; ///< cel shown now, and its option
    std::array<Shared16, 2> fade_levels{};        ///< levels 0 to 254 of the fade channels 0 and 2
    std::array<Wave, 2> waves{};                  ///< across and down
    Glow glow;
};

/// One entry of an animation. The cel 99 sends it back to its first entry, 999 ends it.
struct AnimEntry {
    Shared16 cel = 0;
    Shared16 option = 0;
    Shared16 duration = 0; ///< runs of the behaviour; 0 in the first entry: nothing to play
};

/// A step of the move queue, -1 where there is none.
struct MovePoint {
    Shared16 x = -1, y = -1, z = -1;
};

/// Keeps an actor at another one's place.
struct Follow {
    std::array<Shared<int>, 3> offset{}; ///< pixels, added to the other's place
    std::array<Shared<int>, 3> locked{}; ///< not 0: this axis stays where it is
};

/// One actor. The initialisers are the values of a free row.
struct Actor : ActorLook {
    // What the behaviour pass reads of every row at every tick is together.
    alignas(64) std::array<Published16, max_behaviors> BEHAVIOR{}; ///< behaviour id of each slot; 0 is free
    std::array<Shared16, max_behaviors> behavior_interval{};       ///< ticks to wait between two runs
    std::array<Shared16, max_behaviors> behavior_counter{};        ///< ticks since the last run
    Shared16 Self_Destruct = -1;                                   ///< ticks left to live, -1: no limit
    Shared16 Suicide_buddy = -1;      ///< actor that this one is a puppet of; outlives a destroy
    Shared16 actor_puppet_state = -1; ///< 0: watches the lead actor, 1: has seen it change
    std::array<Shared<uint8_t>, max_behaviors> behavior_autokill{}; ///< 1: the end of the behaviour ends the actor
    std::array<std::array<Shared16, behavior_param_count>, max_behaviors> behavior_params{}; ///< p0 to p9: its state

    std::array<Shared<int>, 3> actor_fixed_pos{}; ///< place x 10000
    std::array<Shared<int>, 3> actor_velocity{};  ///< added to it at each step; z is subtracted
    Shared<int> actor_follow = -1;                ///< actor whose place this one keeps; outlives a destroy
    Follow follow;
    Shared16 anim_kill = 0; ///< 1: the end of a linear move ends the animation too
    std::array<AnimEntry, anim_table_size> anim_table{};
    std::array<AnimEntry, stand_table_size> stand_table{};
    Shared16 Anim_Delay = 0, Anim_Lock = 0, Act_accum = 0, Act_delay = 0;
    Shared16 Experience = 0, Max_Move = 0, Max_Jump = 0, Speed = 0;
    Shared16 C_power = 0, M_power = 0, R_power = 0, D_power = 0, C_weapon = 0, R_weapon = 0;
    std::array<MovePoint, move_queue_size> move_queue{};
    Particles particles;
    Plasma plasma;
    Splash splash;

    Published16 Type = ACTOR_FREE; ///< 0: free; is last, so that a reset frees the row when all else is blank
};
inline std::array<Actor, max_actors> actors;

/// Words that the layer's passes and its application share.
/// Writers: framework.
struct ActorLayer {
    Shared<int> lead_actor = 0;     ///< the actor that the application follows; application
    Shared<int> camera_target = -1; ///< the actor that the view keeps to, -1 none; scripts
    Shared<int> event_actor = 0;    ///< actor of the last event that a job made known; application
    Shared<int> event_slot = 0;     ///< its behaviour slot
    bool actors_unguarded = false;  ///< true while all rows are reset: the protected ones and the links too
};
inline ActorLayer actor_layer;

inline Actor& actor_at(int who) { return actors[who]; }
constexpr bool actor_exists(int who) { return who >= 0 && who < max_actors; }

/// True for an actor that may be killed, 1 to 48; logs a line and returns false for any other number.
bool check_actor(int who);
/// Lowest free row from 1 to 48, or -1 with a line in the log. The caller marks it as taken.
int FW_grab_actor();
/// Resets a row and releases its speech bubbles. Refuses rows 0 and 49 and numbers outside the table, with a line and
/// the name of the `caller`.
void FW_destroy_actor(int who, const char* caller);
/// Takes a row as a generic element; returns it, or -1 with a line in the log.
int FW_spawn_blank_element(int frame_x, int frame_y);
/// Destroys every taken row from 1 to 49 of this type and profession, -1 standing for any; returns their number.
int FW_destroy_actor_type(int type, int profession);
/// Resets all 50 rows, the protected ones with them.
void reset_actors();
/// Number of taken rows, 0 to 49.
int count_actors();
/// First free slot of 0 to 2, and 3 when those are full, whether it is free or not. A bad `who`: 0 with a line.
int get_free_behavior(int who);
/// Highest slot that holds the behaviour, or -1. A bad `who`: 0 with a line.
int check_behavior(int who, int behavior);

} // namespace kelu
