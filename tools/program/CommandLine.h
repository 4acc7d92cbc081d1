#pragma once

class Charset;

/// Does what the command line asks for, in the terminal's character set, and returns the exit
/// status. Says on standard error what is wrong with the command line; throws what a command does.
int RunCommandLine(int argc, char** argv, const Charset& terminal);
