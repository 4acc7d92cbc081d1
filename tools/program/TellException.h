#pragma once

class Charset;

/// Writes the exception that is being handled to standard error, as one line.
void TellException(const Charset& terminal);
