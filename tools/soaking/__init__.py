"""What tools/soak is made of: the program under test in a folder of its own (program, confinement),
hands on its display (hands), what is done to it (words, and the modules that actions names), and
what is made of it (rounds)."""
