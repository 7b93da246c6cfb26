// Nothing of the job ends with its handle.
#include "watched_program.h"

namespace platform::windows {
namespace {

Handle makeJob() {
    const HANDLE job = CreateJobObjectW(nullptr, nullptr);
    return job == nullptr ? Handle() : Handle(job);
}

} // namespace

/// It sleeps until it is in the job, so nothing that it starts can be missed.
DWORD WatchedProgram::start(const std::wstring& program, std::wstring commandLine,
                            const std::wstring& folder, WORD showCommand) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = showCommand;
    PROCESS_INFORMATION made{};
    if (CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE,
                       CREATE_SUSPENDED, nullptr, folder.c_str(), &startup, &made) == 0)
        return GetLastError();
    const Handle thread(made.hThread);
    process_ = Handle(made.hProcess);
    job_ = makeJob();
    // Before Windows 8 a process belongs to one job at most.
    if (job_ && AssignProcessToJobObject(job_.get(), process_.get()) == 0)
        job_ = Handle();
    ResumeThread(thread.get());
    return ERROR_SUCCESS;
}

bool WatchedProgram::isRunning() {
    JOBOBJECT_BASIC_ACCOUNTING_INFORMATION known{};
    if (job_ && QueryInformationJobObject(job_.get(), JobObjectBasicAccountingInformation, &known,
                                          sizeof known, nullptr) != 0)
        return known.ActiveProcesses > 0;
    return process_ && WaitForSingleObject(process_.get(), 0) == WAIT_TIMEOUT;
}

} // namespace platform::windows
