#include "ui/MirevalMacApp.h"

int main(int argc, char** argv) {
  return mireval::MirevalMacApp::main(argc, argv);
}
