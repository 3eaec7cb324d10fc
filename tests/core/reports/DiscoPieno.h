// A full disk, without filling one.
#pragma once

#include <sys/resource.h>

#include <csignal>

namespace fenalto::reports {

/// No file of this process grows past a size: what a full disk looks like.
class DiscoPieno {
 public:
  explicit DiscoPieno(rlim_t byte) : gestore_(std::signal(SIGXFSZ, SIG_IGN)) {
    ::getrlimit(RLIMIT_FSIZE, &prima_);
    rlimit stretto = prima_;
    stretto.rlim_cur = byte;
    ::setrlimit(RLIMIT_FSIZE, &stretto);
  }
  DiscoPieno(const DiscoPieno&) = delete;
  DiscoPieno& operator=(const DiscoPieno&) = delete;
  ~DiscoPieno() {
    ::setrlimit(RLIMIT_FSIZE, &prima_);
    std::signal(SIGXFSZ, gestore_);
  }

 private:
  rlimit prima_{};
  void (*gestore_)(int);
};

}  // namespace fenalto::reports
