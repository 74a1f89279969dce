// The host's prompt protocol: what commands, prompts and dialogs return. All are 32-bit signed.
#pragma once

namespace QuelStatus {

// Stopped without having done anything and without a message.
constexpr int kStopped = 0;
// Completed normally; of a prompt: an answer was given.
constexpr int kNormal = 5100;
// The user pressed Enter at a prompt that takes keywords.
constexpr int kEmptyAnswer = 5000;
// Error, or the user declined.
constexpr int kError = -5001;
// The user cancelled a prompt or a dialog, or the input ended.
constexpr int kCancelled = -5002;

} // namespace QuelStatus
