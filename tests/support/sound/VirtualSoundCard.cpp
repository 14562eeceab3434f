// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/sound/VirtualSoundCard.h"

#include <stdlib.h>

#include <chrono>
#include <stdexcept>
#include <thread>
#include <utility>

namespace korvel::test {
namespace {

std::vector<std::string> nullSink(const std::string& id, const std::string& name) {
  // Without rewinds it plays every 50 ms, as cards do, and not up to 2 s at once.
  return {"module-null-sink",
          "norewinds=1",
          "sink_name=" + id,
          "format=s16le",
          "rate=44100",
          "channels=2",
          "sink_properties=\"device.description='" + name + "'\""};
}

std::string joined(const std::vector<std::string>& words) {
  std::string line;
  for (const std::string& word : words) line += (line.empty() ? "" : " ") + word;
  return line;
}

std::vector<std::string> daemon(const ScratchFolder& folder) {
  const std::string home = folder.path().string();
  // Nothing of the user's own desktop is touched, and the daemon ends with the test program.
  return {"/bin/sh", "-c",
          R"(exec env HOME="$0" XDG_CONFIG_HOME="$0" DBUS_SESSION_BUS_ADDRESS=none \
             setpriv --pdeathsig KILL pulseaudio -n --daemonize=no --use-pid-file=no \
             --exit-idle-time=-1 --disallow-exit=yes --high-priority=no --realtime=no \
             --disable-shm=yes -L "module-native-protocol-unix auth-anonymous=1 socket=$0/socket" \
             -L "$1")",
          home, joined(nullSink("card", "Card"))};
}

Outcome control(std::vector<std::string> words) {
  words.insert(words.begin(), "pactl");
  return runProgram(words);
}

}  // namespace

EnvironmentVariable::EnvironmentVariable(std::string name, const std::string& value)
    : m_name(std::move(name)) {
  if (const char* before = ::getenv(m_name.c_str())) m_before = before;
  ::setenv(m_name.c_str(), value.c_str(), 1);
}

EnvironmentVariable::~EnvironmentVariable() {
  if (m_before)
    ::setenv(m_name.c_str(), m_before->c_str(), 1);
  else
    ::unsetenv(m_name.c_str());
}

VirtualSoundCard::VirtualSoundCard()
    : m_server("PULSE_SERVER", "unix:" + m_folder.file("socket")),
      m_runtime("PULSE_RUNTIME_PATH", m_folder.path().string()),
      m_daemon(daemon(m_folder)) {
  if (!eventually([] { return control({"info"}).status == 0; })) {
    killServer();
    throw std::runtime_error("the virtual sound card does not start");
  }
}

VirtualSoundCard::~VirtualSoundCard() { killServer(); }

void VirtualSoundCard::plug(const std::string& id, const std::string& name) {
  std::vector<std::string> words = nullSink(id, name);
  words.insert(words.begin(), "load-module");
  const Outcome loaded = control(words);
  if (loaded.status != 0) throw std::runtime_error("cannot plug in " + name + ": " + loaded.err);
  m_modules[id] = loaded.out.substr(0, loaded.out.find('\n'));
}

void VirtualSoundCard::unplug(const std::string& id) {
  if (control({"unload-module", m_modules.at(id)}).status != 0)
    throw std::runtime_error("cannot unplug " + id);
}

void VirtualSoundCard::killServer() {
  if (!std::exchange(m_alive, false)) return;
  m_daemon.kill();
  m_daemon.wait();
}

bool VirtualSoundCard::isPlaying() const {
  return !control({"list", "short", "sink-inputs"}).out.empty();
}

bool eventually(const std::function<bool()>& condition) {
  using namespace std::chrono_literals;
  const auto limit = std::chrono::steady_clock::now() + 60s;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > limit) return false;
    std::this_thread::sleep_for(5ms);
  }
  return true;
}

}  // namespace korvel::test
