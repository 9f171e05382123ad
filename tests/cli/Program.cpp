#include "cli/Program.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

namespace quorvane::test {

pid_t Program::Spawn(const std::vector<std::string>& words, int outFile) {
  std::vector<char*> argv;
  argv.reserve(words.size() + 1);
  for (const std::string& word : words) argv.push_back(const_cast<char*>(word.c_str()));
  argv.push_back(nullptr);
  const std::string err = own_ / "err";
  const std::string directory = folder.Path().string();
  const pid_t child = fork();
  if (child < 0) throw std::runtime_error("cannot fork");
  if (child > 0) return child;
  const int errFile = open(err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  const bool ready = errFile >= 0 && dup2(outFile, 1) == 1 && dup2(errFile, 2) == 2 && chdir(directory.c_str()) == 0;
  if (!ready) _exit(126);
  setenv("LC_ALL", "C", 1);
  setenv("Q", QUORVANE_PROGRAM, 1);
  setenv("SAMPLES", QUORVANE_SOURCE_DIR "/samples", 1);
  execvp(argv[0], argv.data());
  _exit(127);
}

Outcome Program::Wait(pid_t child) {
  int status = 0;
  if (waitpid(child, &status, 0) != child) throw std::runtime_error("the child is gone");
  Outcome outcome;
  outcome.status = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
  outcome.err = own_.Read("err");
  return outcome;
}

Outcome Program::Shell(const std::string& command) {
  const int outFile = open((own_ / "out").c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
  if (outFile < 0) throw std::runtime_error("cannot write standard output");
  Outcome outcome = Wait(Spawn({"bash", "-c", command}, outFile));
  close(outFile);
  outcome.out = own_.Read("out");
  return outcome;
}

pid_t Program::Start(const std::vector<std::string>& args, int outFile) {
  std::vector<std::string> words{QUORVANE_PROGRAM};
  words.insert(words.end(), args.begin(), args.end());
  return Spawn(words, outFile);
}

void WriteShop(const TempFolder& folder) {
  folder.Write("Shop.vbg", "VBGROUP 5.0\r\nStartupProject=App\\App.vbp\r\nProject=Lib\\Lib.vbp\r\n");
  folder.Write("App/App.vbp",
               "Type=Exe\r\nName=\"App\"\r\nModule=Main; main.BAS\r\nModule=Common; ..\\Lib\\Common.bas\r\n"
               "RelatedDoc=Notes.txt\r\nClass=Gone; Gone.cls\r\n");
  folder.Write("App/Notes.txt", "total\r\n");
  folder.Write("App/Main.bas",
               "Attribute VB_Name = \"Main\"\r\nOption Explicit\r\nPublic total As Long\r\n"
               "Attribute total.VB_VarDescription = \"the sum\"\r\nSub Sum()\r\n"
               "Attribute Sum.VB_Description = \"adds\"\r\n\ttotal = total + 1 ' Total\r\nEnd Sub\r\n");
  folder.Write("Lib/Lib.vbp", "Type=OleDll\nName=\"Lib\"\nModule=Common; Common.bas\nClass=Order; Order.cls\n");
  folder.Write("Lib/Common.bas", "Attribute VB_Name = \"Common\"\nDim a\nDim subtotal\n");
  folder.Write("Lib/Order.cls",
               "VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1  'True\r\nEND\r\nAttribute VB_Name = \"Order\"\r\n"
               "Property Get P(): End Property\r\nProperty Let P(v)\r\n  x = \"<&>\"\r\nEnd Property\r\n' end");
}

}  // namespace quorvane::test
