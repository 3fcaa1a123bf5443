// kvt1-update-service: the local update service for tests and the demo.
//   kvt1-update-service --answers DIR [--mode MODE] [--delay-ms N] [--port-file FILE]
// Answers product N from DIR/N.json; MODE is answer (the default), slow, 204,
// 301, 500, garbage, oversized, close or hang. Prints the address it listens
// on, every request line and, for each usage report upload, the frame's size
// and whether its length prefix matches; runs until interrupted.
#include <pthread.h>
#include <signal.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "tools/kvt1-update-service/UpdateService.h"

namespace {

int usage() {
  std::fprintf(stderr,
               "usage: kvt1-update-service --answers DIR [--mode answer|slow|204|301|500|garbage|oversized|close|hang]\n"
               "                           [--delay-ms N] [--port-file FILE]\n");
  return 2;
}

}  // namespace

int main(int argc, char** argv) {
  using kvt1::service::ServiceMode;
  kvt1::service::UpdateService service;
  std::string portFile;
  bool haveAnswers = false;
  for (int i = 1; i < argc; ++i) {
    const std::string option = argv[i];
    if (option == "--help" || option == "-h") {
      usage();
      return 0;
    }
    if (i + 1 >= argc) return usage();
    const std::string value = argv[++i];
    if (option == "--answers") {
      service.setAnswersFolder(value);
      haveAnswers = true;
    } else if (option == "--mode") {
      ServiceMode mode;
      if (!kvt1::service::parseServiceMode(value, mode)) return usage();
      service.setMode(mode);
    } else if (option == "--delay-ms") {
      service.setDelayMs(std::atoi(value.c_str()));
    } else if (option == "--port-file") {
      portFile = value;
    } else {
      return usage();
    }
  }
  if (!haveAnswers) return usage();

  // The signals end the program through sigwait below, on this thread only.
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGINT);
  sigaddset(&signals, SIGTERM);
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);

  service.setRequestLog([](const std::string& line) {
    std::printf("%s\n", line.c_str());
    std::fflush(stdout);
  });
  if (!service.start()) {
    std::fprintf(stderr, "kvt1-update-service: cannot listen on 127.0.0.1: %s\n", std::strerror(errno));
    return 1;
  }
  if (!portFile.empty()) {
    // Written whole under another name first, so that a reader never sees half a number.
    const std::string temporary = portFile + ".tmp";
    std::FILE* file = std::fopen(temporary.c_str(), "w");
    if (!file || std::fprintf(file, "%u\n", service.port()) < 0 || std::fclose(file) != 0 ||
        std::rename(temporary.c_str(), portFile.c_str()) != 0) {
      std::fprintf(stderr, "kvt1-update-service: cannot write %s\n", portFile.c_str());
      return 1;
    }
  }
  std::printf("kvt1-update-service: listening on %s\n", service.hostAndPort().c_str());
  std::fflush(stdout);

  int received = 0;
  sigwait(&signals, &received);
  service.stop();
  return 0;
}
