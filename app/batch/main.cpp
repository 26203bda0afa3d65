#include "app/batch/Process.h"

int main(int argc, char** argv) {
  return tevra::batch::RunProcess(argc, argv, nullptr);
}
