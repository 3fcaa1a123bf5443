// kvt1-update-service: the local update and usage service for tests and the
// demo; --help describes its endpoints and options.
#include <pthread.h>
#include <signal.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "tools/kvt1-update-service/UpdateService.h"

namespace {

const char kUsage[] =
    "usage: kvt1-update-service --answers DIR [--mode answer|slow|204|301|500|garbage|oversized|close|hang]\n"
    "                           [--delay-ms N] [--port-file FILE]\n";

const char kHelp[] =
    "\n"
    "A local stand-in for the maker's update and usage services, on 127.0.0.1 at a\n"
    "free port. Point an installation at it with the machine values under\n"
    "HKEY_LOCAL_MACHINE\\SOFTWARE\\Halvorn Systems\\KVT\\1.1\\CAD:\n"
    "  \"CheckUpdateUrl\"=\"127.0.0.1:PORT\"        (the update check's host)\n"
    "  \"UsageReportUrl\"=\"http://127.0.0.1:PORT/UsageReportService/Upload\"\n"
    "Without \"UsageReportUrl\" the module sends usage reports over https to the\n"
    "maker's service, which this program does not stand in for.\n"
    "\n"
    "Endpoints:\n"
    "  GET /AutomaticUpdateServiceLibrary/CheckForUpdates?product=N&version=V&language=L\n"
    "      200 with the JSON text of DIR/N.json; 404 when there is no such file.\n"
    "  POST /UsageReportService/Upload\n"
    "      Content-Type: application/json; the body is\n"
    "        {\"Product\":N,\"Frame\":\"BASE64\"}\n"
    "      where the frame is a 4-byte little-endian length followed by that many\n"
    "      bytes: a zlib stream of the usage report's JSON text. 200 with\n"
    "      {\"Accepted\":true} when the frame is well formed, 404 otherwise.\n"
    "\n"
    "Options:\n"
    "  --answers DIR     the folder of answers, one N.json per product number\n"
    "  --mode MODE       answer (the default); slow (answer after the delay); 204;\n"
    "                    301; 500; garbage (200, not JSON); oversized (200, 100 MB);\n"
    "                    close (drops the connection); hang (never answers).\n"
    "                    The modes apply to both endpoints.\n"
    "  --delay-ms N      the delay of slow (2000 by default)\n"
    "  --port-file FILE  writes the port there once listening\n"
    "\n"
    "Prints the address it listens on, every request line and, for each upload,\n"
    "the frame's size and whether its length prefix matches; runs until SIGINT or\n"
    "SIGTERM.\n";

int usage() {
  std::fputs(kUsage, stderr);
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
      std::fputs(kUsage, stdout);
      std::fputs(kHelp, stdout);
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
