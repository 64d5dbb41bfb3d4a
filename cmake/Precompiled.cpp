// What compiles the headers that other targets use needs a file of its own.
