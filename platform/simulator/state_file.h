// The stored configuration of the simulated switch: its state as JSON.
//
// People edit this file to turn the switch into another one. A member that is
// left out has its factory default. A text that is not UTF-8 is a list of its
// bytes.
#pragma once

#include "platform/simulator/state.h"

#include <string>

namespace simulator {

std::string to_json_text(const State& state);

// Throws std::exception, with a message that names the member, for anything
// that the state cannot hold exactly as it is written.
State from_json_text(const std::string& text);

// Cuts numbers and texts that do not fit, and ignores unknown members. A text
// may fill its field and leave no room for a terminator.
State from_json_text_cut(const std::string& text);

// Loads the file into the state, and stores the state when the process ends if
// it has changed. A missing file means the factory defaults. A broken one ends
// the process with exit status 1 and a message: factory defaults in its place
// would mislead.
void load_stored_configuration();

} // namespace simulator
