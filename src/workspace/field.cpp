// SPDX-License-Identifier: MIT
// Words of state by reference, as tagged files read and write them.
#include "workspace/field.h"

namespace kelu {

int Field::get(int i) const
{
    switch (width_) {
    case Width::PLAIN:
        return *static_cast<int*>(at(i));
    case Width::SHARED:
        return *static_cast<Shared<int>*>(at(i));
    case Width::FLAG:
        return *static_cast<uint8_t*>(at(i)) != 0;
    case Width::SHARED_FLAG:
        return *static_cast<Shared<uint8_t>*>(at(i)) != 0;
    case Width::LISTED:
        return **static_cast<int**>(at(i));
    case Width::CONSTANT:
        break;
    }
    return constant_;
}

void Field::set(int i, int word) const
{
    switch (width_) {
    case Width::PLAIN:
        *static_cast<int*>(at(i)) = word;
        break;
    case Width::SHARED:
        *static_cast<Shared<int>*>(at(i)) = word;
        break;
    case Width::FLAG:
        *static_cast<uint8_t*>(at(i)) = word != 0;
        break;
    case Width::SHARED_FLAG:
        *static_cast<Shared<uint8_t>*>(at(i)) = static_cast<uint8_t>(word != 0);
        break;
    case Width::LISTED:
        **static_cast<int**>(at(i)) = word;
        break;
    case Width::CONSTANT:
        break;
    }
}

} // namespace kelu
