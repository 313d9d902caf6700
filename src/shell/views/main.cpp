#include "shell/views/AppRunner.h"

int main(int argc, char** argv) { return pw::RunPlatewell(argc, argv); }
