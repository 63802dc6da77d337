#include "scenario/program/Program.h"

int main(int argc, char** argv) { return koru::RunScenarioProgram(argc, argv); }
