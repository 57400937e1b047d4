#include "persistence/DropSession.h"

#include "persistence/SaveSession.h"
#include "platform/Platform.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"

namespace pulselark {

namespace {

// A shorter session is not worth a question.
constexpr Long SecondsWorthAQuestion = 16;

} // namespace

bool MayDropSession(int questionText) {
    if (SessionUnsaved == Off || SessionSeconds <= SecondsWorthAQuestion)
        return true;
    const int answer = ThePlatform().Messages.Show(
        LanguageText(questionText), ButtonYes | ButtonNo | ButtonCancel, {MessageKind::Question, ButtonNo});
    if (answer == ButtonYes) {
        SaveSession();
        return LastFileResult == FileSuccess;
    }
    return answer == ButtonNo;
}

} // namespace pulselark
