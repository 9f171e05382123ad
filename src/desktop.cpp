#include "desktop/shell/Program.h"

int main(int argc, char** argv) {
  return quorvane::desktop::Main(argc, argv);
}
