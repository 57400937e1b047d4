#include "BenchSession.h"

#include "SyntheticEcg.h"
#include "persistence/SessionFile.h"
#include "platform/system/SystemFiles.h"
#include "session/MainBuffers.h"

#include <cstdlib>
#include <stdexcept>
#include <unistd.h>

namespace pulselark {

namespace {

void Demand(Integer failure, const std::string& fileName) {
    if (failure != 0)
        throw std::runtime_error(fileName + ": " + FailureText(failure));
}

} // namespace

BenchSession::BenchSession() {
    SetStartValues();
    const char* folder = std::getenv("PULSELARK_DATA");
    if (folder != nullptr && *folder != '\0') {
        fileName_ = std::string(folder) + "/sessions/hour_two_channels_3601s.hti";
        std::string text;
        Demand(SystemFiles().ReadWhole(fileName_, text), fileName_);
        Demand(ReadSessionText(text).Number, fileName_);
        ChannelBPresent = ToBoolean(ChannelMode == 1);
        return;
    }
    FillWithSyntheticEcg(LongestSession);
    const std::string name = "pulselark_bench_" + std::to_string(::getpid()) + ".hti";
    fileName_ = (std::filesystem::temp_directory_path() / name).string();
    temporary_ = true;
    Demand(SystemFiles().ReplaceWhole(fileName_, SessionText()), fileName_);
}

BenchSession::~BenchSession() {
    std::error_code ignored;
    if (temporary_)
        std::filesystem::remove(fileName_, ignored);
}

} // namespace pulselark
