== Text is written and read
int $f = `fopen ($d + "a.txt") "w"`; fprint $f "one\n"; fprint($f, 1.0 / 3); fprint $f {"x", "y"}; fclose $f;
system("cat '" + $d + "a.txt'") => one\n0.3333333333x\ny\n
int $f = fopen($d + "a.txt", "r"); string $l = fgetline($f);
    while (size($l) > 0) { print("[" + $l + "]"); $l = fgetline($f); }
    print(feof($f)); fclose($f); >> print: [one\n][0.3333333333x\n][y\n]1
int $f = fopen($d + "a.txt", "a"); fprint($f, "z"); fclose($f);
system("tail -c 3 '" + $d + "a.txt'") => y\nz
// The end is known only after a read met it.
int $f = fopen($d + "a.txt", "r"); print(feof($f)); frewind($f); print(fgetword($f)); fclose($f); >> print: 0one

== Words are read between separators
fwriteAllText($d + "w", "  one two,three\nfour");
int $f = fopen($d + "w", "r"); print(fgetword($f) + ";");
    print(fgetword($f, ",") + ";" + fgetword($f) + ";" + fgetword($f));
    print("[" + fgetword($f) + "]"); fclose($f); >> print: one;two;three;four[]

== Binary values come back
int $f = fopen($d + "b", "w"); fwrite($f, -7); fwrite($f, 2.5); fwrite($f, "txt"); fwrite($f, <<1, 2, 3>>); fclose($f);
system("wc -c < '" + $d + "b'") => 40\n
int $f = fopen($d + "b", "r"); int $i; float $x; string $s; vector $v;
    $i = fread($f, $i); $x = fread($f, $x); $s = fread($f, $s); $v = fread($f, $v);
    print($i + " " + $x + " " + $s + " " + $v + " " + fread($f, $i)); fclose($f); >> print: -7 2.5 txt 1 2 3 0

== Reading and writing may alternate
fwriteAllText($d + "rw", "aaaa\nbbbb\n");
int $f = fopen($d + "rw", "r+"); print(fgetline($f)); fprint($f, "XX"); print(fgetline($f)); fclose($f); >> print: aaaa\nbb\n
system("cat '" + $d + "rw'") => aaaa\nXXbb\n

== Old files are Latin-1
system("printf 'Gr\\374n' > '" + $d + "old'");
freadAllText($d + "old"); => Grün

== Whole files
fwriteAllLines($d + "l", {"a", "", "b"}); => 1
system("cat '" + $d + "l'") => a\n\nb\n
size(freadAllLines($d + "l")); => 3
fwriteAllText($d + "l", "a\r\nb");
print(freadAllLines($d + "l")); >> print: a\nb\n

== Bad files are reported
fopen($d + "no/file", "r"); => 0
fopen($d + "x", "q"); => error: Invalid file mode "q"....
fgetline(99); => error: Invalid file identifier: 99....
int $f = fopen($d + "x", "w"); fclose($f); fclose($f); => error: Invalid file identifier: 1....
fclose(fopen($d + "x", "w")); int $f = fopen($d + "x", "r"); fprint($f, 1); => error: Cannot write to file 3....
freadAllText($d + "none"); => error: Cannot read file...
fwriteAllText($d + "no/file", ""); => error: Cannot write file...

== Pipes carry both ways
int $p = popen("printf 'a\\nb'", "r"); print(fgetline($p)); print(fgetline($p)); print(feof($p)); pclose($p); >> print: a\nb1
int $p = popen("cat > '" + $d + "piped'", "w"); fprint($p, "through"); pclose($p);
system("cat '" + $d + "piped'") => through

== Folders are listed
string $names[] = {"b.mel", "a.mel", "c.txt", "B.MEL"};
    for ($n in $names) fwriteAllText($d + $n, ""); sysFile -makeDir ($d + "sub/deep");
string $l[] = `getFileList -folder $d -filespec "*.mel"`; => a.mel b.mel
string $l[] = `getFileList -fld $d -fs "[bs]*"`; => b.mel sub
size(`getFileList -folder ($d + "none")`); => 0

== Files are changed
fwriteAllText($d + "a", "text"); fwriteAllText($d + "b", "old");
sysFile -copy ($d + "b") ($d + "a"); => 1
system("cat '" + $d + "b'") => text
sysFile -copy ($d + "a") ($d + "a"); => 0
sysFile -copy ($d + "b") ($d + "none"); => 0
system("cat '" + $d + "b'") => text
sysFile -rename ($d + "c") ($d + "a"); => 1
sysFile -move ($d + "c") ($d + "a"); => 0
sysFile -makeDir ($d + "x/y"); => 1
sysFile -delete ($d + "x"); => 0
sysFile -removeEmptyDir ($d + "x"); => 0
sysFile -red ($d + "x/y"); => 1
sysFile -delete ($d + "c"); => 1
sysFile ($d + "c"); => error: ...

== Files are tested
fwriteAllText($d + "full", "x"); fwriteAllText($d + "empty", ""); system("ln -s full '" + $d + "link'");
filetest -f ($d + "full"); => 1
filetest -f ($d + "none"); => 0
filetest -d ($d + "full"); => 0
filetest -d ($d + "."); => 1
filetest -s ($d + "full"); => 1
filetest -s ($d + "empty"); => 0
filetest -L ($d + "link"); => 1
filetest -L ($d + "full"); => 0
filetest -e ($d + "none"); => 0
filetest -r ($d + "full"); => 1
filetest -x ($d + "full"); => 0

== Programs are run
system("printf 'a b'; exit 3"); => a b
system("cat < /dev/null"); =>
exec("echo done > '" + $d + "background'");
@until (`filetest -s ($d + "background")` && freadAllText($d + "background") == "done\n")

== Environment variables
putenv("TARNWICK_TEST", "a=b"); => a=b
getenv("TARNWICK_TEST"); => a=b
getenv("TARNWICK_NONE"); =>
putenv("A=B", "x"); => error: ...
