#include "app/batch/Process.h"
#include "app/batch/commands/Report.h"

int main(int argc, char** argv) {
  return tevra::batch::RunProcess(argc, argv, &tevra::batch::kReportWriters);
}
