#include "AudioFiles.h"

#include "ChildProcess.h"

#include <cstring>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace mireval::test {

namespace fs = std::filesystem;

fs::path AudioFiles::make(const std::string& name, const std::vector<std::string>& arguments) const {
  const fs::path file = folder() / name;
  std::vector<std::string> command{"ffmpeg", "-nostdin", "-v", "error", "-y"};
  command.insert(command.end(), arguments.begin(), arguments.end());
  command.push_back(file.string());
  if (runCommand(command).status != 0) {
    throw std::runtime_error("ffmpeg could not make " + name);
  }
  return file;
}

fs::path AudioFiles::tone(double frequency, double seconds, Format format) const {
  std::ostringstream source;
  source << "aevalsrc=0.25*sin(2*PI*" << frequency << "*t)";
  for (int channel = 1; channel < format.channels; ++channel) {
    source << "|0.25*sin(2*PI*" << frequency << "*t)";
  }
  source << ":s=" << format.sampleRate << ":d=" << seconds;
  std::ostringstream name;
  name << "tone-" << frequency << '-' << seconds << '-' << format.sampleRate << '-' << format.channels
       << ".m4a";
  return make(name.str(), {"-f", "lavfi", "-i", source.str(), "-c:a", "aac", "-b:a", "160k"});
}

fs::path AudioFiles::noise(double seconds) const {
  std::ostringstream source;
  source << "anoisesrc=r=44100:a=0.3:s=7:d=" << seconds;
  return make("noise.m4a", {"-f", "lavfi", "-i", source.str(), "-ac", "2", "-c:a", "aac", "-b:a", "160k"});
}

fs::path AudioFiles::bytes(const std::string& name, const std::string& content) const {
  const fs::path file = folder() / name;
  std::ofstream(file, std::ios::binary) << content;
  return file;
}

fs::path AudioFiles::truncated(double share, bool indexFirst) const {
  std::vector<std::string> arguments{"-f", "lavfi", "-i", "aevalsrc=0.25*sin(2*PI*440*t):s=44100:d=4"};
  if (indexFirst) {
    arguments.insert(arguments.end(), {"-movflags", "+faststart"});
  }
  const std::string whole = contentOf(make("whole.m4a", arguments));
  return bytes("truncated.m4a",
               whole.substr(0, static_cast<std::size_t>(share * static_cast<double>(whole.size()))));
}

Recording AudioFiles::decoded(const fs::path& file) const {
  const std::string raw = runCommand({"ffmpeg", "-nostdin", "-v", "error", "-i", file.string(), "-f", "f32le",
                                      "-ac", "2", "-ar", "44100", "-"})
                              .output;
  Recording recording;
  recording.samples.resize(raw.size() / sizeof(float));
  std::memcpy(recording.samples.data(), raw.data(), recording.samples.size() * sizeof(float));
  return recording;
}

std::string AudioFiles::contentOf(const fs::path& file) {
  std::ostringstream content;
  content << std::ifstream(file, std::ios::binary).rdbuf();
  return content.str();
}

}  // namespace mireval::test
