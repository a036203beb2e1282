// SPDX-License-Identifier: MIT
// The fields of an actor that behaviour 99 may change, by number.
#pragma once

namespace kelu {

enum VariableId : int {
    VARIABLE_POSITION = 1, ///< of axis p3
    VARIABLE_HOME = 2,     ///< of axis p3
    VARIABLE_DIAMETER = 3,
    VARIABLE_ANGLE = 4,
    VARIABLE_TURN = 5,        ///< first turn, wraps at 256
    VARIABLE_SECOND_TURN = 6, ///< second turn, wraps at 256
    VARIABLE_COLOR = 7,
    VARIABLE_FACING = 8,
    VARIABLE_CEL = 9,
    VARIABLE_CEL_OPTION = 10,
    VARIABLE_FRAME_X = 11,
    VARIABLE_FRAME_Y = 12,
    VARIABLE_HEALTH = 13,
    VARIABLE_STAMINA = 14,
    VARIABLE_SPEED = 15,
    VARIABLE_FADE_LEVEL = 16, ///< level p3 of two
    VARIABLE_OPACITY = 18,    ///< kept in 0 to 254
    VARIABLE_MODE = 20,       ///< set, not added to
    VARIABLE_WAVE_PHASE = 30  ///< of wave p3, wraps at 256
};

} // namespace kelu
