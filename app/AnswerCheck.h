#pragma once
// Whether the keys a pass found agree with the answer the problem file records.
#include "app/SolvingRequest.h"

enum class EAnswerCheck { NotRecorded, Matched, Mismatched };

// Keys of the mirrored pass are mirrored back first. A pass that looked for every key (or
// found fewer than it would have stopped at) must find exactly the recorded set; a pass
// that stopped at its limit must find only recorded keys. Moves are the same when their
// squares and promotion types agree.
EAnswerCheck CheckAnswer(const SolvingRequest& request);
