#include "app/Commands.h"

#include "base/Numbers.h"

#include <cstdio>

namespace pulselark {

std::string HelpText() {
    return "PulseLark, a heart-rhythm biofeedback workstation\n"
           "\n"
           "  pulselark [FILE.hti]                     opens the window, with a session\n"
           "  pulselark analyse FILE.hti [--averaging N] [--out FILE.csv]\n"
           "                                           loads, rescans and replays a session and writes the "
           "numbers\n"
           "                                           of each replayed second; N is the averaging width "
           "(default 0)\n"
           "  pulselark resave IN.hti OUT.hti          reads a session and writes it anew\n"
           "  pulselark picture FILE.hti --second S --out FILE.png [--size WxH] [--scheme 0..4] [--filled] "
           "[--training 0..3] [--density D]\n"
           "                                           the workspace as it looks at second S; the least size "
           "is\n"
           "                                           800x600\n"
           "  pulselark scan FILE.hti... [--training] [--channel A|B] [--language N] [--smoothing 0..16]\n"
           "                                           writes the figures of the quick scan, a line of JSON "
           "for "
           "each\n"
           "                                           file; with one file also, for its channel:\n"
           "       [--plx OUT.plx] [--pdf OUT.pdf [--paper A4|Letter]] [--png OUT.png]\n"
           "                                           the scan file (with --training in the training's "
           "form), "
           "the\n"
           "                                           page to print and its picture\n"
           "  pulselark chord --render FILE.wav --session FILE.hti --from S --seconds N\n"
           "                                           the chords of N seconds from second S on, as the "
           "built-in\n"
           "                                           synthesizer sounds them\n"
           "  pulselark trace FILE.hti [--mode 0..3] [--interval N] [--averaging N] [--midi] [--app-link]\n"
           "                                           replays a session, in training with a mode, and "
           "prints "
           "each\n"
           "                                           score, payload, launch, label, status and message\n"
           "  pulselark record --monitor NAME [--option K=V ...] --seconds N --out FILE.hti [--fast]\n"
           "                                           records from an ECG monitor without a window; --fast: "
           "as fast\n"
           "                                           as it goes, for \"Simulated ECG\" and \"Replay "
           "file\". Options:\n"
           "                                           Simulated ECG: seed rate breathing depth ectopic "
           "noise\n"
           "                                           dropouts channels; Serial ECG: port speed protocol "
           "rate scale\n"
           "                                           first channels; Heart strap: address; Replay file: "
           "file\n"
           "  pulselark recover --list | --out FILE.hti [JOURNAL]\n"
           "                                           the recordings that a crash has left; writes the "
           "newest, or\n"
           "                                           the one named\n"
           "  pulselark beats FILE [--channel A|B]     finds the beats of a session or of a WFDB record "
           "(FILE.hea)\n"
           "                                           as a live recording would; for each beat its time, "
           "raw "
           "and\n"
           "                                           corrected interval in seconds, and N normal, E "
           "ectopic,\n"
           "                                           M missed (inferred, raw interval 0) or X not to be "
           "trusted\n"
           "  pulselark --help | --version\n"
           "\n"
           "For the window:\n"
           "  --no-splash                              starts without the splash and its waiting\n"
           "  --dry-testing                            for developers: recordings run without a monitor, "
           "over zeros\n"
           "  --trace FILE                             writes each event as `trace` prints it\n"
           "  --full-speed                             replays the session as fast as it can, then ends\n"
           "  --picture FILE.png                       with --full-speed: leaves a picture of the workspace\n"
           "\n"
           "Exit codes: 0 success, 1 a failure (one line on standard error says what and where), 2 wrong "
           "usage, 3 a session too short for a scan.\n";
}

int Complain(const std::string& text, int exitCode) {
    std::fprintf(stderr, "pulselark: %s\n", text.c_str());
    return exitCode;
}

int ComplainOfFile(const std::string& name, int number, int line, const std::string& why) {
    std::string text = name;
    if (line > 0)
        text += ": line " + std::to_string(line);
    text += ": " + (why.empty() ? FailureText(static_cast<Integer>(number)) : why) + " (failure " +
            std::to_string(number) + ")";
    return Complain(text, ExitFailure);
}

} // namespace pulselark
