// SPDX-License-Identifier: MIT
// The behaviour that changes any field of an actor, and the table of those fields.
#include "framework/behavior_steps.h"
#include "framework/fades.h"
#include "framework/variables.h"
#include <algorithm>

namespace kelu {
namespace {

/// What becomes of the field's value and the amount.
enum class Rule { ADD, ADD_WRAPPED, ADD_OPACITY, SET };

struct VariableRow {
    int id;
    Rule rule;
    int indices; // how many the field has, for the index p3; 0: it is a single one
    Shared16& (*field)(Actor& actor, std::size_t index);
};

template <auto Member>
Shared16& plain(Actor& actor, std::size_t)
{
    return actor.*Member;
}
template <auto Member>
Shared16& indexed(Actor& actor, std::size_t index)
{
    return (actor.*Member)[index];
}
Shared16& wave_phase(Actor& actor, std::size_t index) { return actor.waves[index].phase; }

constexpr VariableRow variable_rows[] = {
    {VARIABLE_POSITION, Rule::ADD, 3, indexed<&Actor::actor_pos>},
    {VARIABLE_HOME, Rule::ADD, 3, indexed<&Actor::actor_home>},
    {VARIABLE_DIAMETER, Rule::ADD, 0, plain<&Actor::Diameter>},
    {VARIABLE_ANGLE, Rule::ADD, 0, plain<&Actor::Angle>},
    {VARIABLE_TURN, Rule::ADD_WRAPPED, 0, plain<&Actor::actor_angle>},
    {VARIABLE_SECOND_TURN, Rule::ADD_WRAPPED, 0, plain<&Actor::actor_angle2>},
    {VARIABLE_COLOR, Rule::ADD, 0, plain<&Actor::Color>},
    {VARIABLE_FACING, Rule::ADD, 0, plain<&Actor::Facing>},
    {VARIABLE_CEL, Rule::ADD, 0, plain<&Actor::actor_cel>},
    {VARIABLE_CEL_OPTION, Rule::ADD, 0, plain<&Actor::actor_cel_option>},
    {VARIABLE_FRAME_X, Rule::ADD, 0, plain<&Actor::Frame_x>},
    {VARIABLE_FRAME_Y, Rule::ADD, 0, plain<&Actor::Frame_y>},
    {VARIABLE_HEALTH, Rule::ADD, 0, plain<&Actor::Health>},
    {VARIABLE_STAMINA, Rule::ADD, 0, plain<&Actor::Stamina>},
    {VARIABLE_SPEED, Rule::ADD, 0, plain<&Actor::Speed>},
    {VARIABLE_FADE_LEVEL, Rule::ADD_OPACITY, 2, indexed<&Actor::fade_levels>},
    {VARIABLE_OPACITY, Rule::ADD_OPACITY, 0, plain<&Actor::actor_opacity>},
    {VARIABLE_MODE, Rule::SET, 0, plain<&Actor::Mode>},
    {VARIABLE_WAVE_PHASE, Rule::ADD_WRAPPED, 2, wave_phase},
};
static_assert(std::size(variable_rows) == 19);

int apply(Rule rule, int value, int amount)
{
    switch (rule) {
    case Rule::ADD_WRAPPED:
        return (value + amount) & 255;
    case Rule::ADD_OPACITY:
        return std::clamp(value + amount, 0, max_opacity);
    case Rule::SET:
        return amount;
    case Rule::ADD:
        break;
    }
    return value + amount;
}

} // namespace

/// p0 variable, p1 amount, p2 countdown, 0: without end, p3 index of the variable's field.
Outcome BE_modify_variable(const Run& run)
{
    auto& p = run.params;
    for (const VariableRow& row : variable_rows) {
        if (row.id != p[0] || (row.indices > 0 && (p[3] < 0 || p[3] >= row.indices))) continue;
        Shared16& field = row.field(run.actor, p[3]);
        field = apply(row.rule, field, p[1]);
    }
    return p[2] == 0 ? Outcome::GOES_ON : count_down(p[2]);
}

} // namespace kelu
