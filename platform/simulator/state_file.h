// The stored configuration of the simulated switch: its state as JSON.
//
// People edit this file to make the switch another one. A member that is left
// out has its factory default. A text that is not UTF-8 stands as a list of
// byte values.
#pragma once

#include "platform/simulator/state.h"

#include <string>

namespace simulator {

std::string to_json_text(const State& state);

// Throws std::exception, with a message that names the member, for anything
// that the state cannot hold just as it is written.
State from_json_text(const std::string& text);

// The same, but a number or text that does not fit is cut to its member, and
// members that there are not are passed over.
State from_json_text_cut(const std::string& text);

// Makes the file the switch's state; a missing one leaves the factory
// defaults. A broken one is told on standard error and ends the process with
// exit status 1, since a fresh switch in its place would be a lie. What the
// run has changed is stored in the file when the process ends.
void load_stored_configuration();

} // namespace simulator
