def outer(values):
    return [inner(value) for value in values]


def inner(value):
    return 10 / value


print("before the error")
outer([5, 2, 0])
print("never reached")
