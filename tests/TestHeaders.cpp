// Gives JotwellTestHeaders something to compile.
