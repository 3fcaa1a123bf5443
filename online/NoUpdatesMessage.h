#pragma once
// The message after a check the user asked for found nothing to show.
namespace kvt1 {

extern const wchar_t kNoUpdatesText[];
extern const wchar_t kUpdatesCaption[];

// "No updates were found." over the active window, in the language
// module's words when it has them.
void showNoUpdatesMessage();

}  // namespace kvt1
