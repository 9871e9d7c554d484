#pragma once

// The application object that the measures run in, made by main().
int& ApplicationArgc();
char** ApplicationArgv();
void StartApplication();
void EndApplication();
