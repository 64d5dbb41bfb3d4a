== A hotkey runs a named command
nameCommand -annotation "Say hello" -command "print \"hello\"" sayHello => sayHello
hotkey -keyShortcut "k" -ctrlModifier 1 -name "sayHello";
hotkey -q -name -ctrlModifier "k" => sayHello
hotkey -q -name "k" =>
@press Ctrl+K >> print: hello
@press K
>>
hotkey -k "k" -ctl 1 -n "";
@press Ctrl+K
>>

== Keys have many names
nameCommand -command "print \"#\"" c; hotkey -k "F5" -n "c"; hotkey -k "A" -n "c"; hotkey -k "Page_Up" -alt -sht -n "c"; hotkey -k "!" -rn "c";
hotkey -q -n -sht "a" => c
hotkey -q -n "A" => c
hotkey -q -n "a" =>
hotkey -q -rn "!" => c
@press F5 >> print: #
@press Alt+Shift+PgUp >> print: #
hotkey -k "NoSuchKey" -n "c" => error: There is no key called "NoSuchKey".
hotkey -n "c" => error: hotkey needs a key: -keyShortcut "k".

== Hotkeys outlive the session
nameCommand -ann "quote \" here" -c "print \"a\\nb\";\nprint \"c\"" twoLines; hotkey -k "Return" -ctl -alt -n "twoLines"; hotkey -k ";" -n "noSuchCommand";
@restart
hotkey -q -n -ctl -alt "Return" => twoLines
@press Ctrl+Alt+Return >> print: a\nbc
@press ;
>>
hotkey -factorySettings;
@restart
hotkey -q -n -ctl -alt "Return" =>

== Run-time commands have hotkeys too
runTimeCommand -c "print \"ran\"" -ann "x" myTool; hotkey -k "j" -n "myTool";
@press J >> print: ran
