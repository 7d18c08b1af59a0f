#pragma once
// The helper process that speaks through the desktop's speech service. Run by the reader as its own child with the
// option --speech-service, and by nobody else. The service's library is loaded when the helper starts, so the reader
// works where it is not installed.
//
// The talk, in lines. The helper first says "ready text" (the voice reads Japanese as people write it) or "ready kana"
// (it has to be given kana), or "absent" and ends. Then the reader says "say RATE TEXT", where RATE is -100..100, or
// "cancel". Each "say" is answered by "said N", where N is the number that the service gave the text, 0 if it refused;
// "begin N" and "end N" tell when it is spoken, "cancelled N" that it was not or not to its end, because another
// program speaks through the service; in any order with "said N".

/// Runs the helper on the standard streams; returns the exit status.
int runSpeechService();
