#include "kt/Thread.h"

#include <poll.h>
#include <pthread.h>
#include <sched.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>

namespace KT {

namespace {
thread_local CThread* tlCurrent = nullptr;
}

CThread::CThread(const std::string& name, int priority, const Body& body)
    : name_(name), priority_(priority), body_(body) {
    cancelFd_ = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
}

CThread::~CThread() {
    Cancel();
    if (cancelFd_ >= 0)
        ::close(cancelFd_);
}

bool CThread::Run() {
    std::lock_guard<std::mutex> lock(startMutex_);
    if (running_.load())
        return false;
    if (thread_.joinable())
        thread_.join();  // a previous run that ended by itself
    cancel_ = false;
    if (cancelFd_ >= 0) {
        uint64_t drain;
        while (::read(cancelFd_, &drain, sizeof drain) > 0) {
        }
    }
    running_ = true;
    try {
        thread_ = std::thread(&CThread::Main, this);
    } catch (...) {
        running_ = false;
        return false;
    }
    return true;
}

void CThread::Cancel() {
    std::lock_guard<std::mutex> lock(startMutex_);
    cancel_ = true;
    if (cancelFd_ >= 0) {
        uint64_t one = 1;
        ssize_t r = ::write(cancelFd_, &one, sizeof one);
        (void)r;
    }
    if (!thread_.joinable())
        return;
    if (thread_.get_id() == std::this_thread::get_id()) {
        thread_.detach();  // cannot join itself; the loop ends after this body call
        return;
    }
    thread_.join();
}

void CThread::Main() {
    tlCurrent = this;
    pthread_setname_np(pthread_self(), name_.substr(0, 15).c_str());
    if (priority_ > 0) {
        sched_param p{};
        p.sched_priority = priority_;
        pthread_setschedparam(pthread_self(), SCHED_FIFO, &p);  // best effort
    }
    while (!cancel_.load()) {
        if (!body_())
            break;
    }
    running_ = false;
    tlCurrent = nullptr;
}

int CThread::GetPriority() {
    int policy = 0;
    sched_param p{};
    if (pthread_getschedparam(pthread_self(), &policy, &p) != 0)
        return 0;
    return p.sched_priority;
}

bool CThread::Sleep(unsigned int ms) {
    int fd = CurrentCancelFd();
    if (fd < 0) {
        timespec ts{static_cast<time_t>(ms / 1000), static_cast<long>(ms % 1000) * 1000000L};
        while (nanosleep(&ts, &ts) != 0 && errno == EINTR) {
        }
        return true;
    }
    pollfd pfd{fd, POLLIN, 0};
    int r;
    do {
        r = ::poll(&pfd, 1, static_cast<int>(ms));
    } while (r < 0 && errno == EINTR);
    return r == 0;
}

CThread* CThread::Current() {
    return tlCurrent;
}

int CThread::CurrentCancelFd() {
    return tlCurrent ? tlCurrent->cancelFd_ : -1;
}

}  // namespace KT
