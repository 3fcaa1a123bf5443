#include "tools/kvt1-update-service/UpdateService.h"

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <sstream>

#ifdef _WIN32
#include <winsock2.h>
#include <ws2tcpip.h>
#else
#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/select.h>
#include <sys/socket.h>
#include <unistd.h>
#endif

#include "platform/Base64.h"
#include "platform/CaseFolding.h"

namespace kvt1::service {
namespace {

#ifdef _WIN32
using NativeSocket = SOCKET;
constexpr int kSendFlags = 0;
constexpr int kShutdownBoth = SD_BOTH;
void closeSocket(NativeSocket socket) { closesocket(socket); }
#else
using NativeSocket = int;
constexpr int kSendFlags = MSG_NOSIGNAL;
constexpr int kShutdownBoth = SHUT_RDWR;
void closeSocket(NativeSocket socket) { close(socket); }
#endif

constexpr std::intptr_t kNoSocket = -1;
constexpr std::size_t kMaxRequestHead = 64 * 1024;
constexpr std::size_t kOversizedBytes = 100u * 1024 * 1024;
const char kServicePath[] = "/AutomaticUpdateServiceLibrary/CheckForUpdates";
const char kUploadPath[] = "/UsageReportService/Upload";
constexpr std::size_t kMaxRequestBody = 64u * 1024 * 1024;

NativeSocket native(std::intptr_t socket) { return static_cast<NativeSocket>(socket); }

// Waits up to 100 ms for the socket to become readable.
bool readable(std::intptr_t socket) {
  fd_set set;
  FD_ZERO(&set);
  FD_SET(native(socket), &set);
  timeval wait{0, 100 * 1000};
  return select(static_cast<int>(native(socket)) + 1, &set, nullptr, nullptr, &wait) > 0;
}

bool sendAll(std::intptr_t socket, const std::string& data) {
  std::size_t sent = 0;
  while (sent < data.size()) {
    const int chunk = static_cast<int>(std::min<std::size_t>(data.size() - sent, 1 << 20));
    const auto result = send(native(socket), data.data() + sent, chunk, kSendFlags);
    if (result <= 0) return false;
    sent += static_cast<std::size_t>(result);
  }
  return true;
}

std::string response(int status, const char* reason, const std::string& body, const std::string& headers = "") {
  std::ostringstream out;
  out << "HTTP/1.1 " << status << ' ' << reason << "\r\n" << headers;
  if (status != 204)
    out << "Content-Type: application/json; charset=utf-8\r\nContent-Length: " << body.size() << "\r\n";
  out << "Connection: close\r\n\r\n";
  if (status != 204) out << body;
  return out.str();
}

// The product number of a service request's query, or false for another target.
bool requestedProduct(const std::string& target, std::uint32_t& product) {
  const std::size_t query = target.find('?');
  if (target.compare(0, query, kServicePath) != 0 || query == std::string::npos) return false;
  std::size_t at = target.find("product=", query);
  if (at == std::string::npos) return false;
  at += 8;
  const std::size_t end = target.find('&', at);
  const std::string digits = target.substr(at, end == std::string::npos ? std::string::npos : end - at);
  if (digits.empty() || digits.find_first_not_of("0123456789") != std::string::npos) return false;
  product = static_cast<std::uint32_t>(std::strtoul(digits.c_str(), nullptr, 10));
  return true;
}

// The value of a header in the request head (name matched without regard to case).
std::string headerValue(const std::string& head, const std::string& name) {
  std::size_t line = head.find("\r\n");
  while (line != std::string::npos && line + 2 < head.size()) {
    const std::size_t start = line + 2;
    const std::size_t end = head.find("\r\n", start);
    const std::string field = head.substr(start, end == std::string::npos ? std::string::npos : end - start);
    const std::size_t colon = field.find(':');
    if (colon != std::string::npos && platform::asciiEqualsIgnoringCase(field.substr(0, colon), name)) {
      const std::size_t value = field.find_first_not_of(' ', colon + 1);
      return value == std::string::npos ? std::string() : field.substr(value);
    }
    line = end;
  }
  return std::string();
}

}  // namespace

bool decodeUploadFrame(const std::string& body, std::vector<std::uint8_t>& frame) {
  const std::string key = "\"Frame\":\"";
  const std::size_t start = body.find(key);
  if (start == std::string::npos) return false;
  const std::size_t begin = start + key.size();
  const std::size_t end = body.find('"', begin);
  std::string bytes;
  if (end == std::string::npos || !platform::decodeBase64(std::string_view(body).substr(begin, end - begin), bytes))
    return false;
  frame.assign(bytes.begin(), bytes.end());
  return true;
}

bool parseServiceMode(const std::string& name, ServiceMode& mode) {
  static const std::map<std::string, ServiceMode> modes = {
      {"answer", ServiceMode::Answer},        {"slow", ServiceMode::Slow},       {"204", ServiceMode::NoContent},
      {"301", ServiceMode::MovedPermanently}, {"500", ServiceMode::ServerError}, {"garbage", ServiceMode::Garbage},
      {"oversized", ServiceMode::Oversized},  {"close", ServiceMode::Close},     {"hang", ServiceMode::Hang},
  };
  const auto found = modes.find(name);
  if (found == modes.end()) return false;
  mode = found->second;
  return true;
}

UpdateService::UpdateService() {
#ifdef _WIN32
  WSADATA data;
  WSAStartup(MAKEWORD(2, 2), &data);
#endif
}

UpdateService::~UpdateService() {
  stop();
#ifdef _WIN32
  WSACleanup();
#endif
}

bool UpdateService::start() {
  const NativeSocket listener = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
  if (static_cast<std::intptr_t>(listener) == kNoSocket) return false;
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = 0;
  socklen_t length = sizeof address;
  if (bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 || listen(listener, 16) != 0 ||
      getsockname(listener, reinterpret_cast<sockaddr*>(&address), &length) != 0) {
    closeSocket(listener);
    return false;
  }
  listener_ = static_cast<std::intptr_t>(listener);
  port_ = ntohs(address.sin_port);
  stopping_ = false;
  acceptor_ = std::thread(&UpdateService::acceptLoop, this);
  return true;
}

void UpdateService::stop() {
  {
    std::lock_guard<std::mutex> lock(mutex_);
    if (listener_ == kNoSocket) return;
    stopping_ = true;
    for (std::intptr_t socket : openSockets_) shutdown(native(socket), kShutdownBoth);
  }
  stopped_.notify_all();
  acceptor_.join();
  for (std::thread& connection : connections_) connection.join();
  connections_.clear();
  closeSocket(native(listener_));
  listener_ = kNoSocket;
}

std::string UpdateService::hostAndPort() const { return "127.0.0.1:" + std::to_string(port_); }

void UpdateService::setMode(ServiceMode mode) {
  std::lock_guard<std::mutex> lock(mutex_);
  mode_ = mode;
}

void UpdateService::setDelayMs(int milliseconds) {
  std::lock_guard<std::mutex> lock(mutex_);
  delayMs_ = milliseconds;
}

void UpdateService::setAnswer(std::uint32_t product, std::string json) {
  std::lock_guard<std::mutex> lock(mutex_);
  answers_[product] = std::move(json);
}

void UpdateService::setAnswersFolder(std::string folder) {
  std::lock_guard<std::mutex> lock(mutex_);
  answersFolder_ = std::move(folder);
}

void UpdateService::setRequestLog(std::function<void(const std::string&)> log) {
  std::lock_guard<std::mutex> lock(mutex_);
  log_ = std::move(log);
}

std::vector<std::string> UpdateService::requests() const {
  std::lock_guard<std::mutex> lock(mutex_);
  return requests_;
}

std::vector<ReceivedUpload> UpdateService::uploads() const {
  std::lock_guard<std::mutex> lock(mutex_);
  return uploads_;
}

bool UpdateService::acceptUpload(const std::string& body, std::string& json) {
  ReceivedUpload upload;
  upload.body = body;
  if (decodeUploadFrame(body, upload.frame) && upload.frame.size() >= 4) {
    const std::uint32_t length = upload.frame[0] | upload.frame[1] << 8 | upload.frame[2] << 16 |
                                 static_cast<std::uint32_t>(upload.frame[3]) << 24;
    upload.wellFormed = length == upload.frame.size() - 4;
  }
  const std::string note = "upload: frame of " + std::to_string(upload.frame.size()) + " bytes, " +
                           (upload.wellFormed ? "length prefix matches" : "malformed");
  const bool accepted = upload.wellFormed;
  std::function<void(const std::string&)> log;
  {
    std::lock_guard<std::mutex> lock(mutex_);
    uploads_.push_back(std::move(upload));
    log = log_;
  }
  if (log) log(note);
  json = "{\"Accepted\":true}";
  return accepted;
}

void UpdateService::acceptLoop() {
  for (;;) {
    {
      std::lock_guard<std::mutex> lock(mutex_);
      if (stopping_) return;
    }
    if (!readable(listener_)) continue;
    const NativeSocket accepted = accept(native(listener_), nullptr, nullptr);
    if (static_cast<std::intptr_t>(accepted) == kNoSocket) continue;
    std::lock_guard<std::mutex> lock(mutex_);
    if (stopping_) {
      closeSocket(accepted);
      return;
    }
    openSockets_.push_back(static_cast<std::intptr_t>(accepted));
    connections_.emplace_back(&UpdateService::serve, this, static_cast<std::intptr_t>(accepted));
  }
}

void UpdateService::waitFor(int milliseconds) {
  std::unique_lock<std::mutex> lock(mutex_);
  if (milliseconds < 0) {
    stopped_.wait(lock, [this] { return stopping_; });
  } else {
    stopped_.wait_for(lock, std::chrono::milliseconds(milliseconds), [this] { return stopping_; });
  }
}

bool UpdateService::answerFor(const std::string& target, std::string& json) const {
  std::uint32_t product = 0;
  if (!requestedProduct(target, product)) return false;
  std::lock_guard<std::mutex> lock(mutex_);
  const auto found = answers_.find(product);
  if (found != answers_.end()) {
    json = found->second;
    return true;
  }
  if (answersFolder_.empty()) return false;
  std::ifstream file(answersFolder_ + "/" + std::to_string(product) + ".json", std::ios::binary);
  if (!file) return false;
  json.assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  return true;
}

void UpdateService::serve(std::intptr_t connection) {
  std::string head;
  char buffer[4096];
  while (head.find("\r\n\r\n") == std::string::npos && head.size() < kMaxRequestHead) {
    {
      std::lock_guard<std::mutex> lock(mutex_);
      if (stopping_) break;
    }
    if (!readable(connection)) continue;
    const auto received = recv(native(connection), buffer, sizeof buffer, 0);
    if (received <= 0) break;
    head.append(buffer, static_cast<std::size_t>(received));
  }

  // A request body: what came with the head, then the rest of its declared length.
  std::string body;
  const std::size_t headEnd = head.find("\r\n\r\n");
  if (headEnd != std::string::npos) {
    body = head.substr(headEnd + 4);
    head.resize(headEnd + 4);
    const std::size_t length = std::strtoul(headerValue(head, "Content-Length").c_str(), nullptr, 10);
    if (length > body.size() && length <= kMaxRequestBody) {
      if (headerValue(head, "Expect") == "100-continue") sendAll(connection, "HTTP/1.1 100 Continue\r\n\r\n");
      while (body.size() < length) {
        {
          std::lock_guard<std::mutex> lock(mutex_);
          if (stopping_) break;
        }
        if (!readable(connection)) continue;
        const auto received = recv(native(connection), buffer, sizeof buffer, 0);
        if (received <= 0) break;
        body.append(buffer, static_cast<std::size_t>(received));
      }
    }
  }

  const std::string line = head.substr(0, head.find("\r\n"));
  const std::size_t targetStart = line.find(' ');
  const std::size_t targetEnd = line.find(' ', targetStart + 1);
  const std::string target =
      targetStart == std::string::npos ? std::string() : line.substr(targetStart + 1, targetEnd - targetStart - 1);

  ServiceMode mode;
  int delay;
  std::function<void(const std::string&)> log;
  {
    std::lock_guard<std::mutex> lock(mutex_);
    if (!line.empty()) requests_.push_back(line);
    mode = mode_;
    delay = delayMs_;
    log = log_;
  }
  if (log && !line.empty()) log(line);

  if (!line.empty()) {
    std::string json;
    const bool known =
        line.rfind("POST ", 0) == 0 && target == kUploadPath ? acceptUpload(body, json) : answerFor(target, json);
    switch (mode) {
      case ServiceMode::Slow:
        waitFor(delay);
        [[fallthrough]];
      case ServiceMode::Answer:
        sendAll(connection, known ? response(200, "OK", json) : response(404, "Not Found", "{}"));
        break;
      case ServiceMode::NoContent:
        sendAll(connection, response(204, "No Content", ""));
        break;
      case ServiceMode::MovedPermanently:
        sendAll(connection, response(301, "Moved Permanently", json,
                                     "Location: http://" + hostAndPort() + "/moved" + target + "\r\n"));
        break;
      case ServiceMode::ServerError:
        sendAll(connection, response(500, "Internal Server Error", json));
        break;
      case ServiceMode::Garbage:
        sendAll(connection, response(200, "OK", "<html>this is not JSON {\"CheckForUpdatesResult\":"));
        break;
      case ServiceMode::Oversized: {
        bool open =
            sendAll(connection, "HTTP/1.1 200 OK\r\nContent-Type: application/json\r\nConnection: close\r\n\r\n[");
        const std::string chunk(64 * 1024, ' ');
        for (std::size_t sent = 0; open && sent < kOversizedBytes; sent += chunk.size())
          open = sendAll(connection, chunk);
        break;
      }
      case ServiceMode::Close:
        break;
      case ServiceMode::Hang:
        waitFor(-1);
        break;
    }
  }

  // A graceful end: what the client still sends is read and dropped, so that
  // closing does not reset the connection before the answer is read.
  if (mode != ServiceMode::Close) {
#ifdef _WIN32
    shutdown(native(connection), SD_SEND);
#else
    shutdown(native(connection), SHUT_WR);
#endif
    for (int wait = 0; wait < 10 && readable(connection); ++wait) {
      if (recv(native(connection), buffer, sizeof buffer, 0) <= 0) break;
    }
  }

  std::lock_guard<std::mutex> lock(mutex_);
  for (auto it = openSockets_.begin(); it != openSockets_.end(); ++it) {
    if (*it == connection) {
      openSockets_.erase(it);
      break;
    }
  }
  closeSocket(native(connection));
}

}  // namespace kvt1::service
