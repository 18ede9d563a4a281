print("x")
