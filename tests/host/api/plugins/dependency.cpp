// What MissingDependency links.

__attribute__((visibility("default"))) unsigned int LengthOfNothing()
{
    return 0;
}
