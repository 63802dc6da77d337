#include "host/Program.h"

int main(int argc, char** argv) { return koru::RunProgram(argc, argv); }
